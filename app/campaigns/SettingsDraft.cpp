#include "app/campaigns/SettingsDraft.h"

#include <QDate>
#include <QRegularExpression>
#include <cmath>

#include "app/base/EmailAddress.h"
#include "app/base/RowFields.h"
#include "kit/api/isoDay.h"
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

bool isDate(const QString& text) { return isoDay(text).isValid(); }

QString dateProblem(const QString& text) {
  return text.trimmed().isEmpty() || isDate(text.trimmed()) ? QString() : u"Write the date as YYYY-MM-DD"_s;
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

CampaignOptions optionsOf(const SettingsDraft& draft, const SettingsDraft& base) {
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

template <class Use>
void eachField(const Use& use) {
  boost::mp11::mp_for_each<RowMembers<SettingsDraft>>(use);
}

}  // namespace

SettingsDraft draftOf(const Campaign& campaign) {
  const CampaignOptions options = campaign.settings.value_or(CampaignOptions());
  const CampaignSchedule schedule = campaign.schedule.value_or(CampaignSchedule());
  SettingsDraft draft;
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

QVariantMap valuesOf(const SettingsDraft& draft) {
  QVariantMap values;
  eachField([&](auto field) { values.insert(QString::fromLatin1(field.name), draft.*field.pointer); });
  return values;
}

bool setField(SettingsDraft& draft, const QString& field, const QVariant& value) {
  bool changes = false;
  eachField([&](auto member) {
    if (field != QLatin1String(member.name)) return;
    auto& target = draft.*member.pointer;
    auto next = value.value<std::decay_t<decltype(target)>>();
    changes = std::exchange(target, next) != next;
  });
  return changes;
}

SettingsDraft rebased(SettingsDraft draft, const SettingsDraft& base, const SettingsDraft& fresh) {
  eachField([&](auto field) {
    if (draft.*field.pointer == base.*field.pointer) draft.*field.pointer = fresh.*field.pointer;
  });
  return draft;
}

QVariantMap problemsIn(const SettingsDraft& draft, const SettingsDraft& base) {
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
  const QString start = draft.startDate.trimmed(), end = draft.endDate.trimmed();
  if (datesChanged && isDate(start) && isDate(end) && end < start)
    problems.insert(u"endDate"_s, u"The end date must not come before the start date"_s);
  return problems;
}

CampaignPatch patchOf(const SettingsDraft& draft, const SettingsDraft& base, const Campaign& campaign) {
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
    schedule.startDate = dateOf(draft.startDate);
    schedule.endDate = dateOf(draft.endDate);
    patch.schedule = schedule;
  }
  return patch;
}

}  // namespace orv
