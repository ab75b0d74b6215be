#include "app/campaigns/SettingsDraft.h"

#include <QRegularExpression>
#include <cmath>

#include "app/base/EmailAddress.h"
#include "app/base/TimeZones.h"
#include "app/base/shownName.h"
#include "kit/api/PlatformDate.h"
#include "kit/api/wholeNumber.h"
#include "kit/models/campaigns/campaignOptions.h"
#include "kit/models/campaigns/campaignSchedule.h"
#include "kit/models/campaigns/campaignSender.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr qint64 usualDailyCap = 30;
constexpr int mostDailyCap = 500;
constexpr int mostGapMinutes = 1440;
constexpr int mostPerDay = 100000;

QString gapText(std::optional<qint64> seconds) {
  return seconds ? QString::number(std::max<qint64>(std::llround(double(*seconds) / 60), 1)) : QString();
}

QString numberText(const Clearable<qint64>& number) {
  return number.value() ? QString::number(*number.value()) : QString();
}

QStringList sorted(const std::optional<QList<QString>>& list) {
  QStringList result = list.value_or(QList<QString>());
  result.sort();
  return result;
}

QString addressText(const std::optional<QList<QString>>& addresses) {
  return QStringList(addresses.value_or(QList<QString>())).join(u", "_s);
}

QStringList addressesIn(const QString& text) {
  static const QRegularExpression separators(u"[,;\\s]+"_s);
  QStringList addresses = text.split(separators, Qt::SkipEmptyParts);
  addresses.removeDuplicates();
  return addresses;
}

QString addressProblem(const QString& text) {
  for (const QString& address : addressesIn(text))
    if (!isEmailAddress(address)) return u"“"_s + address + u"” is not an email address"_s;
  return {};
}

QString dateProblem(const QString& text) {
  return text.trimmed().isEmpty() || parseCalendarDay(text.trimmed()) ? QString() : u"Write the date as YYYY-MM-DD"_s;
}

QString rangeProblem(const QString& text, int most, const QString& sentence, bool mayBeEmpty = false) {
  if (mayBeEmpty && text.trimmed().isEmpty()) return {};
  return wholeNumber(text, 1, most) ? QString() : sentence;
}

Clearable<qint64> limitOf(const QString& text) {
  const auto number = wholeNumber(text, 1, mostPerDay);
  return number ? Clearable<qint64>(*number) : Clearable<qint64>::cleared();
}

std::optional<QString> dateOf(const QString& text) {
  return text.trimmed().isEmpty() ? std::nullopt : std::optional(text.trimmed());
}

template <class Target, class Value>
void takeChanged(Target& target, const Value& now, const Value& before) {
  if (now != before) target = now;
}

CampaignOptions optionsOf(const SettingsFields& draft, const SettingsFields& base) {
  CampaignOptions options;
  takeChanged(options.prioritizeNew, draft.prioritizeNew, base.prioritizeNew);
  takeChanged(options.stopOnAutoReply, draft.stopOnAutoReply, base.stopOnAutoReply);
  takeChanged(options.stopCompanyOnReply, draft.stopCompanyOnReply, base.stopCompanyOnReply);
  takeChanged(options.unsubscribeHeader, draft.unsubscribeHeader, base.unsubscribeHeader);
  takeChanged(options.cc, addressesIn(draft.cc), addressesIn(base.cc));
  takeChanged(options.bcc, addressesIn(draft.bcc), addressesIn(base.bcc));
  takeChanged(options.senderTags, draft.senderTags, base.senderTags);
  if (draft.dailyLimit != base.dailyLimit) options.dailyLimit = limitOf(draft.dailyLimit);
  if (draft.maxNewPerDay != base.maxNewPerDay) options.maxNewPerDay = limitOf(draft.maxNewPerDay);
  return options;
}

const QHash<QString, QString>& labels() {
  static const QHash<QString, QString> labels{{u"name"_s, u"Name"_s},
                                              {u"tags"_s, u"Tags"_s},
                                              {u"senders"_s, u"the ticked inboxes"_s},
                                              {u"senderTags"_s, u"Sender tags"_s},
                                              {u"prioritizeNew"_s, u"Prioritize new leads"_s},
                                              {u"stopOnReply"_s, u"Stop the sequence when a lead replies"_s},
                                              {u"stopOnAutoReply"_s, u"Stop on auto reply"_s},
                                              {u"stopCompanyOnReply"_s, u"Stop for the whole company"_s},
                                              {u"unsubscribeHeader"_s, u"Insert unsubscribe header"_s},
                                              {u"dailyCap"_s, u"Daily cap per inbox"_s},
                                              {u"gap"_s, u"Gap between sends"_s},
                                              {u"dailyLimit"_s, u"Campaign daily limit"_s},
                                              {u"maxNewPerDay"_s, u"Max new leads a day"_s},
                                              {u"cc"_s, u"CC"_s},
                                              {u"bcc"_s, u"BCC"_s},
                                              {u"startDate"_s, u"Start date"_s},
                                              {u"endDate"_s, u"End date"_s}};
  return labels;
}

/// What somebody else made of a field, in words.
QString rivalText(const QString& field, const QVariant& value) {
  const QString label = labels().value(field, field);
  if (value.metaType() == QMetaType::fromType<bool>()) return label + (value.toBool() ? u" is on"_s : u" is off"_s);
  // Ids say nothing to anybody.
  if (field == "senders"_L1) return label + u" are others"_s;
  const QString text = value.metaType() == QMetaType::fromType<QStringList>() ? value.toStringList().join(u", "_s)
                                                                              : value.toString().trimmed();
  return text.isEmpty() ? label + u" is empty"_s : label + u" is “"_s + shownName(text) + u'”';
}

}  // namespace

SettingsFields settingsOf(const Campaign& campaign) {
  const CampaignOptions options = campaign.settings.value_or(CampaignOptions());
  const CampaignSchedule schedule = campaign.schedule.value_or(CampaignSchedule());
  SettingsFields draft;
  draft.name = campaign.name;
  draft.tags = sorted(campaign.tags);
  for (const CampaignSender& sender : campaign.senders.value_or(QList<CampaignSender>()))
    if (!sender.viaTag) draft.senders.append(sender.mailboxId);
  draft.senders.sort();
  draft.senderTags = sorted(options.senderTags);
  draft.prioritizeNew = options.prioritizeNew.value_or(false);
  draft.stopOnReply = campaign.stopOnReply.value_or(false);
  draft.stopOnAutoReply = options.stopOnAutoReply.value_or(false);
  draft.stopCompanyOnReply = options.stopCompanyOnReply.value_or(false);
  draft.unsubscribeHeader = options.unsubscribeHeader.value_or(false);
  draft.dailyCap = QString::number(campaign.dailyCapPerInbox.value_or(usualDailyCap));
  draft.gap = gapText(campaign.gapSeconds);
  draft.dailyLimit = numberText(options.dailyLimit);
  draft.maxNewPerDay = numberText(options.maxNewPerDay);
  draft.cc = addressText(options.cc);
  draft.bcc = addressText(options.bcc);
  draft.startDate = schedule.startDate.value_or(QString());
  draft.endDate = schedule.endDate.value_or(QString());
  return draft;
}

QVariantMap problemsIn(const SettingsFields& draft, const SettingsFields& base) {
  QVariantMap problems;
  const auto check = [&](const QString& field, const QString& now, const QString& before, const QString& problem) {
    if (now != before && !problem.isEmpty()) problems.insert(field, problem);
  };
  check(u"name"_s, draft.name, base.name, draft.name.trimmed().isEmpty() ? u"Give the campaign a name"_s : QString());
  check(u"dailyCap"_s, draft.dailyCap, base.dailyCap, rangeProblem(draft.dailyCap, mostDailyCap, u"1 to 500"_s));
  check(u"gap"_s, draft.gap, base.gap, rangeProblem(draft.gap, mostGapMinutes, u"1 to 1440 minutes"_s));
  const auto perDay = u"1 to 100,000, or empty"_s;
  check(u"dailyLimit"_s, draft.dailyLimit, base.dailyLimit, rangeProblem(draft.dailyLimit, mostPerDay, perDay, true));
  check(u"maxNewPerDay"_s, draft.maxNewPerDay, base.maxNewPerDay,
        rangeProblem(draft.maxNewPerDay, mostPerDay, perDay, true));
  check(u"cc"_s, draft.cc, base.cc, addressProblem(draft.cc));
  check(u"bcc"_s, draft.bcc, base.bcc, addressProblem(draft.bcc));
  check(u"startDate"_s, draft.startDate, base.startDate, dateProblem(draft.startDate));
  check(u"endDate"_s, draft.endDate, base.endDate, dateProblem(draft.endDate));
  const bool datesChanged = draft.startDate != base.startDate || draft.endDate != base.endDate;
  const auto start = parseCalendarDay(draft.startDate.trimmed()), end = parseCalendarDay(draft.endDate.trimmed());
  if (datesChanged && start && end && *end < *start)
    problems.insert(u"endDate"_s, u"The end date must not come before the start date"_s);
  return problems;
}

CampaignPatch patchOf(const SettingsFields& draft, const SettingsFields& base, const Campaign& campaign) {
  CampaignPatch patch;
  takeChanged(patch.name, draft.name.trimmed(), base.name);
  takeChanged(patch.tags, draft.tags, base.tags);
  takeChanged(patch.senderMailboxIds, draft.senders, base.senders);
  takeChanged(patch.stopOnReply, draft.stopOnReply, base.stopOnReply);
  if (draft.dailyCap != base.dailyCap) patch.dailyCapPerInbox = wholeNumber(draft.dailyCap, 1, mostDailyCap);
  // Minutes round what the service has in seconds, so only minutes that were typed go back.
  if (draft.gap != base.gap) patch.gapSeconds = wholeNumber(draft.gap, 1, mostGapMinutes).value_or(1) * 60;
  const CampaignOptions options = optionsOf(draft, base);
  if (options != CampaignOptions()) patch.settings = options;
  if (dateOf(draft.startDate) != dateOf(base.startDate) || dateOf(draft.endDate) != dateOf(base.endDate)) {
    CampaignSchedule schedule = campaign.schedule.value_or(CampaignSchedule());
    takeChanged(schedule.startDate, dateOf(draft.startDate), dateOf(base.startDate));
    takeChanged(schedule.endDate, dateOf(draft.endDate), dateOf(base.endDate));
    // Dates without hours would take the hours away, and the page shows the ones that are offered.
    if (schedule.schedules.isEmpty()) schedule.schedules = offeredHours();
    patch.schedule = schedule;
  }
  return patch;
}

QString rivalNote(const QVariantMap& rivals) {
  QStringList changes;
  for (const auto& [field, value] : rivals.asKeyValueRange()) changes.append(rivalText(field, value));
  return rivalsTold(changes);
}

QList<ScheduleWindow> offeredHours() {
  return {{u"Main schedule"_s, {1, 2, 3, 4, 5}, u"09:00"_s, u"17:00"_s, localTimeZone()}};
}

}  // namespace orv
