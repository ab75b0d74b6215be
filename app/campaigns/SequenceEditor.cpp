#include "app/campaigns/SequenceEditor.h"

#include "app/base/shownName.h"
#include "kit/api/wholeNumber.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/campaigns/sequence.h"

#include <QPointer>

using namespace Qt::Literals::StringLiterals;

namespace orv {

/// Changes the draft and brings everything that shows it up to date.
template <class Change>
auto SequenceEditor::edit(Change&& change) {
  if constexpr (std::is_void_v<decltype(change(std::declval<SequenceDraft&>()))>) {
    m_autosave.edit(std::forward<Change>(change));
    follow();
  } else {
    auto result = m_autosave.edit(std::forward<Change>(change));
    follow();
    return result;
  }
}

SequenceEditor::SequenceEditor(CampaignContext& context)
    : Store(context.workspace, &context.whole),
      m_context(context),
      m_autosave(context.services.clock, [this](StepsBody body) { return saveSteps(std::move(body)); }),
      m_recovery(context.workspace,
                 {.isUnsaved = [this] { return isUnsaved(); },
                  .text =
                      [this] {
                        const Campaign* campaign = m_context.campaign.value();
                        return JournalText{campaign ? campaign->version : std::nullopt,
                                           encodeJSON(StepsBody{draft().inputs()})};
                      },
                  .restore = [this](const Recovery::Kept& kept) { return restore(kept); },
                  .discard =
                      [this] {
                        const Campaign* campaign = m_context.campaign.value();
                        if (!campaign) return;
                        showing([&] { m_autosave.discard(campaign->steps.value_or(QList<CampaignStep>())); });
                      }}),
      m_preview(context, m_autosave.draft()),
      m_days(context, m_autosave.draft(), m_preview, [this](const auto& change) { edit(change); }),
      m_testEmail(context, m_autosave, [this] { return emailShown(); }),
      m_spintax(context, [this] { Q_EMIT spinningChanged(); }) {
  connect(&context.campaign, &ResourceBase::valueChanged, this, &SequenceEditor::takeLoaded);
  connect(&m_autosave, &SequenceAutosave::saved, this, &SequenceEditor::takeSaved);
  connect(&m_autosave, &SequenceAutosave::changed, &m_recovery, &Recovery::follow);
  connect(&m_autosave, &SequenceAutosave::typed, &m_recovery, &Recovery::follow);
  connect(&m_autosave, &SequenceAutosave::changed, this, &SequenceEditor::tellFailure);
  connect(m_preview.answer(), &ResourceBase::valueChanged, this, &SequenceEditor::collectVariables);
  collectVariables();
}

void SequenceEditor::takeLoaded() {
  const Campaign& campaign = *m_context.campaign.value();
  // The answer to something that was asked before the last save knows an older sequence.
  if (m_savedVersion && campaign.version && *campaign.version < *m_savedVersion) return;
  showing([this, &campaign] { m_autosave.take(campaign); });
  m_recovery.begin(u"campaigns/"_s + m_context.id + u"/sequence"_s, campaign.version);
}

Recovery::Restored SequenceEditor::restore(const Recovery::Kept& kept) {
  using Restored = Recovery::Restored;
  try {
    const auto steps = decodeJSON<StepsBody>(kept.text.bytes).steps;
    bool isShown = false;
    showing([&] {
      isShown =
          m_autosave.restore(steps, m_context.campaign.value()->steps.value_or(QList<CampaignStep>()), kept.isOther);
    });
    return isShown ? Restored::shown : Restored::held;
  } catch (const DecodeError&) {
    return Restored::unreadable;
  }
}

template <class Change>
void SequenceEditor::showing(Change&& change) {
  const QString subjectBefore = subject(), bodyBefore = body(), variantBefore = m_shown.variant;
  change();
  follow();
  if (m_shown.variant == variantBefore && (subject() != subjectBefore || body() != bodyBefore)) Q_EMIT textShown();
}

Task<Campaign> SequenceEditor::saveSteps(StepsBody body) {
  const auto turn = co_await m_context.workspace.turns().next(m_context.id);
  if (!turn) throw APIError::of(APIError::Kind::cancelled);
  m_saveAsked = m_context.workspace.changes().stamp();
  co_return co_await m_context.api.send(Requests::saveSteps(m_context.id, body));
}

void SequenceEditor::takeSaved(const Campaign& campaign) {
  m_savedVersion = std::max(m_savedVersion, campaign.version);
  m_context.workspace.changes().publish(campaign, m_saveAsked, true);
  follow();
}

/// The note beside the campaign's name tells of it on its own page.
void SequenceEditor::tellFailure() {
  m_context.failedSaves.mark(this, !m_autosave.failure().isEmpty());
  const bool isNew = m_autosave.state() == SequenceAutosave::SaveState::failed && !m_autosave.isAwaited();
  if (isNew) m_context.failedSaves.tell(m_autosave.message());
}

const DraftStep* SequenceEditor::step() const {
  const qsizetype at = draft().placeOf(m_step);
  return at < 0 ? nullptr : &draft().steps()[at];
}

const DraftVariant* SequenceEditor::variant() const {
  const DraftStep* shown = step();
  return shown ? &shown->variants[shown->shown] : nullptr;
}

QString SequenceEditor::subject() const { return variant() ? variant()->subject : QString(); }
QString SequenceEditor::body() const { return variant() ? variant()->body : QString(); }

/// Whoever's email is gone writes on in the one that took its place.
void SequenceEditor::keepSelection() {
  const auto& steps = draft().steps();
  if (steps.isEmpty()) {
    m_step = {};
  } else if (draft().placeOf(m_step) < 0) {
    m_step = steps[std::clamp<qsizetype>(m_place, 0, steps.size() - 1)].key;
  }
  if (const qsizetype at = draft().placeOf(m_step); at >= 0) m_place = at;
}

SequenceEditor::Shown SequenceEditor::shownNow() const {
  Shown shown;
  shown.steps = draft().steps().size();
  const DraftStep* current = step();
  if (!current) return shown;
  const DraftVariant& text = *variant();
  shown.step = current->key.toString();
  shown.place = draft().placeOf(m_step);
  shown.title = u"Email %1"_s.arg(shown.place + 1);
  shown.waitDays = saturated(current->waitDays());
  shown.sameThread = current->sameThread;
  shown.repliesInThread = draft().repliesInThread(shown.place);
  shown.canAddVariant = current->canAddVariant();
  shown.variant = text.key.toString();
  shown.letter = text.label;
  shown.weight = saturated(text.weight);
  shown.enabled = text.enabled;
  for (const DraftVariant& one : current->variants)
    shown.variants.append({.key = one.key.toString(),
                           .label = one.label,
                           .detail = one.enabled ? QString::number(current->sharePercent(one)) + u'%' : u"is off"_s,
                           .ticked = one.enabled});
  return shown;
}

void SequenceEditor::follow() {
  keepSelection();
  const Campaign* campaign = m_context.campaign.value();
  m_rows.update(
      stepRows(draft(), campaign ? campaign->steps.value_or(QList<CampaignStep>()) : QList<CampaignStep>(), m_step));
  m_preview.draftChanged();
  m_days.follow(m_step);
  Shown shown = shownNow();
  if (shown == m_shown) return;
  const bool isOtherText = shown.variant != m_shown.variant || shown.repliesInThread != m_shown.repliesInThread;
  m_shown = std::move(shown);
  m_preview.follow(std::max<qsizetype>(m_shown.place, 0), m_shown.letter);
  Q_EMIT changed();
  if (isOtherText) Q_EMIT textShown();
}

void SequenceEditor::select(const QString& step) {
  const QUuid key(step);
  if (draft().placeOf(key) < 0) return;
  m_step = key;
  follow();
}

void SequenceEditor::selectPlace(int place) {
  if (place >= 0 && place < stepCount()) select(draft().steps()[place].key.toString());
}

void SequenceEditor::insertStep(int place) {
  // Into a sequence that is not known: loading it would take the email away again, if there is a campaign at all.
  if (!m_context.campaign.value()) return;
  // Shown from the first moment on: what changes with it is told once.
  m_autosave.edit([this, place](SequenceDraft& draft) { m_step = draft.insertStep(place); });
  follow();
}

void SequenceEditor::writeNew() {
  insertStep(stepCount());
  Q_EMIT writingAsked();
}

void SequenceEditor::removeStep(const QString& step) {
  const QUuid key(step);
  const qsizetype place = draft().placeOf(key);
  if (!edit([&key](SequenceDraft& draft) { return draft.removeStep(key); })) return;
  m_context.services.toasts.show({.message = u"Email %1 removed"_s.arg(place + 1),
                                  .actionLabel = u"Undo"_s,
                                  .action =
                                      [editor = QPointer(this), key] {
                                        if (!editor) return;
                                        editor->m_autosave.edit(
                                            [&key](SequenceDraft& draft) { draft.restoreStep(key); });
                                        editor->m_step = key;
                                        editor->follow();
                                      },
                                  .accumulates = true,
                                  .actsOn = this});
}

void SequenceEditor::setWaitDays(int days) {
  edit([this, days](SequenceDraft& draft) { draft.setWaitDays(m_step, days); });
}

void SequenceEditor::setSameThread(bool sameThread) {
  edit([this, sameThread](SequenceDraft& draft) { draft.setSameThread(m_step, sameThread); });
}

void SequenceEditor::showVariant(const QString& variant) {
  const DraftStep* current = step();
  if (!current) return;
  const auto found = std::ranges::find(current->variants, QUuid(variant), &DraftVariant::key);
  if (found == current->variants.end()) return;
  const qsizetype index = found - current->variants.begin();
  edit([this, index](SequenceDraft& draft) { draft.show(m_step, index); });
}

void SequenceEditor::addVariant() {
  const QUuid added = edit([this](SequenceDraft& draft) { return draft.addVariant(m_step); });
  if (!added.isNull()) showVariant(added.toString());
}

void SequenceEditor::removeVariant(const QString& variant) {
  const QUuid key(variant);
  const DraftVariant* gone = draft().variant(key);
  if (!gone) return;
  const QString label = shownName(gone->label);
  if (!edit([&key](SequenceDraft& draft) { return draft.removeVariant(key); })) return;
  m_context.services.toasts.show({.message = u"Variant %1 removed"_s.arg(label),
                                  .actionLabel = u"Undo"_s,
                                  .action =
                                      [editor = QPointer(this), key] {
                                        if (!editor) return;
                                        editor->edit([&key](SequenceDraft& draft) { draft.restoreVariant(key); });
                                        editor->showVariant(key.toString());
                                      },
                                  .accumulates = true,
                                  .actsOn = this});
}

void SequenceEditor::setWeight(int weight) {
  if (const DraftVariant* shown = variant())
    edit([key = shown->key, weight](SequenceDraft& draft) { draft.setWeight(key, weight); });
}

void SequenceEditor::setEnabled(bool enabled) {
  if (const DraftVariant* shown = variant())
    edit([key = shown->key, enabled](SequenceDraft& draft) { draft.setEnabled(key, enabled); });
}

void SequenceEditor::setSubject(const QString& subject, const QString& variant) {
  const QUuid key(variant.isEmpty() ? m_shown.variant : variant);
  // The field of a reply shows nothing because there is nothing to write.
  const qsizetype at = draft().placeOfVariant(key);
  if (at >= 0 && !draft().repliesInThread(at)) edit([&](SequenceDraft& draft) { draft.setSubject(key, subject); });
}

void SequenceEditor::setBody(const QString& body, const QString& variant) {
  const QUuid key(variant.isEmpty() ? m_shown.variant : variant);
  edit([&](SequenceDraft& draft) { draft.setBody(key, body); });
}

Task<void> SequenceEditor::spinTask(QString field) {
  const DraftVariant* shown = variant();
  if (!shown || !spinning().isEmpty()) co_return;
  const QUuid key = shown->key;
  const QString before = shown->*Spintax::textOf(field);
  const auto after = co_await m_spintax.make(field, before);
  if (!after) co_return;
  const DraftVariant* now = draft().variant(key);
  if (!now || now->*Spintax::textOf(field) != before) {
    m_context.services.toasts.show({.message = u"The email changed while it was spinning. Try again."_s});
    co_return;
  }
  // Whatever is shown by now: a field that comes to show the text later can take the edit back all the same.
  m_spintax.remember(key, field, {before, *after});
  field == "subject"_L1 ? setSubject(*after, key.toString()) : setBody(*after, key.toString());
  if (QUuid(m_shown.variant) == key) Q_EMIT textSpun(field, *after);
  m_context.services.toasts.success(u"Spintax added. ⌘Z takes it back out."_s);
}

QString SequenceEditor::unspun(const QString& field) const {
  return m_spintax.before(QUuid(m_shown.variant), field, field == "subject"_L1 ? subject() : body());
}

void SequenceEditor::collectVariables() {
  if (auto variables = emailVariables(m_preview.response()); variables != m_variables) {
    m_variables = std::move(variables);
    Q_EMIT variablesChanged();
  }
}

std::optional<TestEmailForm::Email> SequenceEditor::emailShown() const {
  const DraftVariant* shown = variant();
  if (!shown) return std::nullopt;
  return TestEmailForm::Email{shown->key,  place() + 1,        shown->label,        shown->subject,
                              shown->body, m_preview.leadId(), m_preview.leadName()};
}

void SequenceEditor::close() {
  // Before the autosave, whose end would have it send what it waits to send.
  m_testEmail.close();
  m_autosave.close();
  m_preview.close();
  m_days.close();
  Store::close();
  m_spintax.stop();
}

}  // namespace orv
