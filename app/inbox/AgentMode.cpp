#include "app/inbox/AgentMode.h"

#include "app/base/shownName.h"
#include "app/inbox/AgentForm.h"
#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"
#include "kit/models/inbox/inboxThread.h"
#include "kit/models/inbox/inboxWords.h"
#include "kit/models/inbox/setterRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

QString n(qint64 count) { return Format::grouped(count); }

}  // namespace

QString autoQuestion(const SetterTraining& training) {
  const QString record = u"You’ve reviewed "_s + n(training.reviewed) + u" of your last "_s + n(training.window) +
                         u" drafts, "_s + n(training.matched) + u" sent without real changes."_s;
  if (training.matched >= training.target) return record;
  return record + u" It is ready for Auto mode at "_s + n(training.target) + u". Switch anyway?"_s;
}

QString readinessText(const SetterTraining& training) {
  if (training.matched >= training.target && training.reviewed > 0)
    return u"Your AI is ready for Auto mode when you are."_s;
  if (training.reviewed == 0)
    return u"Review "_s + n(training.window) + u" drafts to see how close your AI is to your standard."_s;
  const QString ready = u"Ready at "_s + n(training.target);
  const qint64 left = training.window - training.reviewed;
  return left > 0 ? n(left) + u" more to review. "_s + ready : ready;
}

AgentMode::AgentMode(WorkspaceContext& context, Store* whole, Resource<SetterSettings>& settings,
                     Resource<SetterTraining>& training)
    : Store(context, whole),
      m_settings(settings),
      m_training(training),
      m_actions(context, m_busy, [this] { m_settings.load(); }) {
  connect(&m_busy, &BusySet::changed, this, &AgentMode::changed);
  connect(&settings, &ResourceBase::valueChanged, this, &AgentMode::changed);
  connect(&training, &ResourceBase::valueChanged, this, &AgentMode::changed);
}

QList<Choice> AgentMode::modes() {
  return {
      {.key = words::modeDraft,
       .label = u"Draft for approval"_s,
       .detail = u"Draft mode trains your AI before it goes full auto, so it sets appointments and replies to 100% "
                 u"your standard. Nothing sends until you approve it."_s},
      {.key = words::modeAuto,
       .label = u"Auto"_s,
       .detail = u"Auto mode replies and follows up by itself. Anything it isn’t sure of still comes to you first."_s}};
}

QString AgentMode::mode() const { return m_settings.value() ? m_settings.value()->defaultMode : QString(); }

QString AgentMode::lastFlip() const {
  if (!m_training.value() || !m_training.value()->lastFlip) return {};
  const SetterTraining::Flip& flip = *m_training.value()->lastFlip;
  QString text = u"Switched to "_s + (flip.auto_ ? u"Auto"_s : u"Draft"_s) + u" mode"_s;
  if (const auto at = parsePlatformDate(flip.at)) text += u" on "_s + Format::shortDate(at->toLocalTime().date());
  text += u", at "_s + n(flip.matched) + u" of "_s + n(flip.reviewed);
  if (flip.by && !flip.by->isEmpty()) text += u" by "_s + shownName(*flip.by);
  return text;
}

QString AgentMode::autoSend() const {
  if (!m_settings.value()) return {};
  return m_settings.value()->autoSendEnabled ? u"Sending by itself is on for this workspace."_s
                                             : u"Sending by itself is off for this workspace."_s;
}

QString AgentMode::readiness() const { return m_training.value() ? readinessText(*m_training.value()) : QString(); }

QList<Choice> AgentMode::record() const {
  if (!m_training.value()) return {};
  const SetterTraining::Record& record = m_training.value()->record;
  return {{.key = u"total"_s, .label = u"Drafts reviewed"_s, .detail = n(record.total)},
          {.key = u"skipped"_s, .label = u"Skipped"_s, .detail = n(record.skipped)},
          {.key = u"asWritten"_s, .label = u"Approved as written"_s, .detail = n(record.asWritten)},
          {.key = u"picked"_s, .label = u"Other option picked"_s, .detail = n(record.picked)},
          {.key = u"edited"_s, .label = u"Edited by you"_s, .detail = n(record.edited)},
          {.key = u"rules"_s, .label = u"Rules learned"_s, .detail = n(record.rules)},
          {.key = u"usedIn"_s, .label = u"Drafts written with your rules"_s, .detail = n(record.usedIn)}};
}

Task<void> AgentMode::chooseTask(QString mode) {
  if (!canWrite() || !m_settings.value() || mode == this->mode()) co_return;
  const auto mark = m_busy.mark(u"flip"_s);
  if (!mark) co_return;
  const bool isAuto = mode == words::modeAuto;
  // The question states the record, so it waits for one that is not there yet.
  if (isAuto && !m_training.value()) {
    m_training.load();
    services().toasts.show({.message = u"The training record isn’t loaded yet"_s});
    co_return;
  }
  if (isAuto && !co_await services().overlays.confirm({.title = u"Switch to Auto mode?"_s,
                                                       .text = autoQuestion(*m_training.value()),
                                                       .confirm = u"Switch to Auto"_s}))
    co_return;
  const auto saved = co_await m_actions.change<SetterSettings>(
      agentTurn,
      [this, mode] {
        SetterSettingsPatch patch;
        patch.defaultMode = mode;
        return Requests::updateSetterSettings(patch, m_settings.value()->version);
      },
      u"Couldn’t switch the mode."_s);
  if (!saved) co_return;
  m_settings.update([&saved](SetterSettings& settings) { settings = *saved; });
  m_training.load();
  // Each says how the agent goes about it.
  context().changes().stale<InboxThread>();
  services().toasts.success(isAuto ? u"Auto mode on"_s : u"Draft mode on"_s);
}

}  // namespace orv
