#include "app/rampup/WarmupForm.h"

#include <array>

#include "kit/api/wholeNumber.h"
#include "kit/models/rampup/rampupRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr int mostADay = 2000;
constexpr qsizetype longestTag = 60;

/// The fields that are whole numbers, and the most that each may be.
struct NumberField {
  QString WarmupFields::*text;
  qint64 WarmupSettings::*number;
  QLatin1String name;
  int most;
};
constexpr std::array numbers{
    NumberField{&WarmupFields::dailyLimit, &WarmupSettings::dailyLimit, "dailyLimit"_L1, mostADay},
    NumberField{&WarmupFields::replyRate, &WarmupSettings::replyRate, "replyRate"_L1, 100},
    NumberField{&WarmupFields::openRate, &WarmupSettings::openRate, "openRate"_L1, 100},
    NumberField{&WarmupFields::importantRate, &WarmupSettings::importantRate, "importantRate"_L1, 100},
    NumberField{&WarmupFields::spamSaveRate, &WarmupSettings::spamSaveRate, "spamSaveRate"_L1, 100}};

QString upTo(int most) { return u"Enter a number from 0 to "_s + QString::number(most); }

}  // namespace

WarmupFields warmupFields(const WarmupSettings& settings) {
  WarmupFields fields;
  fields.enabled = settings.enabled;
  for (const NumberField& field : numbers) fields.*field.text = QString::number(settings.*field.number);
  if (settings.increasePerDay) fields.increasePerDay = QString::number(*settings.increasePerDay);
  fields.filterTag = settings.filterTag;
  fields.readEmulation = settings.readEmulation;
  fields.warmTrackingDomain = settings.warmTrackingDomain;
  fields.weekdaysOnly = settings.weekdaysOnly;
  return fields;
}

QVariantMap problemsIn(const WarmupFields& fields) {
  QVariantMap problems;
  for (const NumberField& field : numbers)
    if (!wholeNumber(fields.*field.text, 0, field.most)) problems.insert(field.name, upTo(field.most));
  if (!fields.increasePerDay.trimmed().isEmpty() && !wholeNumber(fields.increasePerDay, 0, mostADay))
    problems.insert(u"increasePerDay"_s, upTo(mostADay));
  if (fields.filterTag.trimmed().size() > longestTag) problems.insert(u"filterTag"_s, u"Up to 60 characters"_s);
  return problems;
}

WarmupSettings settingsOf(const WarmupFields& fields) {
  WarmupSettings settings;
  settings.enabled = fields.enabled;
  for (const NumberField& field : numbers)
    settings.*field.number = wholeNumber(fields.*field.text, 0, field.most).value_or(0);
  if (const auto increase = wholeNumber(fields.increasePerDay, 0, mostADay)) settings.increasePerDay = *increase;
  settings.filterTag = fields.filterTag.trimmed();
  settings.readEmulation = fields.readEmulation;
  settings.warmTrackingDomain = fields.warmTrackingDomain;
  settings.weekdaysOnly = fields.weekdaysOnly;
  return settings;
}

WarmupForm::WarmupForm(QString mailboxId, RoadmapActions& actions, Store& whole)
    : Store(whole.context(), &whole),
      m_id(std::move(mailboxId)),
      m_actions(actions),
      m_recovery(whole.context(), Recovery::of(m_draft)) {
  m_draft.setKey(u"rampup/"_s + m_id + u"/warmup"_s);
  connect(&m_draft, &FieldDraft::changed, &m_recovery, &Recovery::follow);
  connect(&m_draft, &FieldDraft::changed, this, &WarmupForm::changed);
  connect(&m_busy, &BusySet::changed, this, &WarmupForm::changed);
  connect(&m_recovery, &Recovery::changed, this, [this] {
    if (m_draft.dirty()) edit();
  });
}

QString WarmupForm::rivals() const { return rivalsTold(m_draft.rivals().keys()); }

void WarmupForm::follow(const WarmupSettings& settings) {
  m_draft.rebase(warmupFields(settings), {});
  m_recovery.begin(m_draft.key(), {});
  Q_EMIT changed();
}

void WarmupForm::edit() {
  if (!canWrite()) return;
  m_editing = true;
  Q_EMIT changed();
}

void WarmupForm::cancel() {
  m_draft.discard();
  m_editing = false;
  Q_EMIT changed();
}

Task<void> WarmupForm::saveTask() {
  if (!canSave()) co_return;
  const WarmupFields sent = m_draft.sending(), base = m_draft.base();
  m_draft.setProblems(problemsIn(sent));
  if (!m_draft.problems().isEmpty()) co_return;
  const WarmupSettingsPatch patch = patchBetween(settingsOf(base), settingsOf(sent));
  // Blanks around a tag, say.
  if (patch == WarmupSettingsPatch()) co_return cancel();
  const auto mark = m_busy.mark(u"save"_s);
  const auto build = [id = m_id, patch] { return Requests::updateWarmup(id, patch); };
  const auto saved = co_await m_actions.change(
      m_id, build, u"Couldn’t save the warm-up settings."_s, {},
      [this](const RampupDetail& answer) { m_draft.taken(warmupFields(answer.settings), {}); });
  if (saved) {
    m_editing = m_draft.dirty();
    services().toasts.success(u"Warm-up settings saved"_s);
  }
  Q_EMIT changed();
}

QStringList WarmupForm::unsavedWork() const {
  if (!m_draft.dirty()) return {};
  return {u"Warm-up settings that are not saved"_s};
}

}  // namespace orv
