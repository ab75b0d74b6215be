#include "app/campaigns/SequencePreview.h"

#include "app/base/shownName.h"
#include "app/campaigns/EmailFindings.h"
#include "app/campaigns/LeadRows.h"
#include "kit/models/campaigns/campaignLeadRequests.h"
#include "kit/models/campaigns/campaignRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

QString labelOf(const CampaignLead& lead) {
  const QString company = lead.company.value_or(QString());
  return company.isEmpty() ? leadName(lead) : leadName(lead) + u" · "_s + company;
}

}  // namespace

SequencePreview::SequencePreview(CampaignContext& context, const SequenceDraft& draft)
    : Store(context.workspace, &context.whole),
      m_context(context),
      m_draft(draft),
      m_answer(
          *this, [this] { return load(); },
          {.isEmpty = [](const PreviewResponse& answer) { return answer.steps.isEmpty(); }, .loadsByItself = false}),
      m_leads(*this,
              [this] {
                return m_context.api.send(Requests::listLeads(m_context.id, {leadsAtMost, {}, false, {}}));
              },
              {.loadsByItself = false}) {
  connect(&m_answer, &ResourceBase::changed, this, &SequencePreview::changed);
  connect(&m_answer, &ResourceBase::valueChanged, this, [this] { m_refreshError.clear(); });
  connect(&m_answer, &ResourceBase::refreshFailed, this, [this](const APIError& error) {
    m_refreshError = error.message();
    Q_EMIT changed();
  });
  connect(&m_leads, &ResourceBase::changed, this, &SequencePreview::changed);
  // What is asked depends on the draft, so that the answer is no resource that a view may have read again.
  connect(&context.workspace, &WorkspaceContext::reachable, this, [this] {
    if (m_watched && !message().isEmpty()) ask();
  });
}

Task<PreviewResponse> SequencePreview::load() {
  PreviewBody body;
  if (!m_chosenLead.isEmpty()) body.leadId = m_chosenLead;
  body.steps = m_draft.inputs();
  m_askedRevision = m_draft.revision();
  co_return co_await m_context.api.send(Requests::previewCampaign(m_context.id, body));
}

void SequencePreview::setWatched(bool watched) {
  if (std::exchange(m_watched, watched) == watched) return;
  watched ? m_leads.appear() : m_leads.disappear();
  m_wait.reset();
  // What failed while nobody looked, or before they looked away, is asked anew.
  if (!message().isEmpty()) m_askedRevision.reset();
  draftChanged();
  // Leads come and go in another tab.
  if (watched) m_leads.load();
  Q_EMIT changed();
}

void SequencePreview::wantVariables() {
  m_wantsVariables = true;
  draftChanged();
}

void SequencePreview::ask() {
  m_wait.reset();
  // Nothing to render yet, or nothing any more: the service is not asked about that.
  if (m_draft.steps().isEmpty()) return;
  m_answer.load();
}

void SequencePreview::retry() {
  if (!message().isEmpty()) ask();
  if (leadsFailed()) m_leads.load();
}

void SequencePreview::draftChanged() {
  const bool isWanted = m_watched || (m_wantsVariables && !m_answer.value());
  if (isWanted && m_askedRevision != m_draft.revision()) askLater(m_askedRevision ? wait : firstWait);
}

void SequencePreview::askLater(std::chrono::milliseconds delay) {
  m_wait = m_context.services.clock.startTimer(delay, [this] { ask(); });
}

void SequencePreview::follow(qsizetype place, const QString& letter) {
  m_place = place;
  m_letter = letter;
  draftChanged();
  Q_EMIT changed();
}

QString SequencePreview::title() const {
  if (m_draft.steps().isEmpty()) return u"Preview"_s;
  return u"Preview · email %1 of %2"_s.arg(m_place + 1).arg(m_draft.steps().size());
}

QList<Choice> SequencePreview::leads() const {
  QList<Choice> options;
  if (const LeadPage* page = m_leads.value())
    for (const CampaignLead& lead : page->items) options.append({.key = lead.id, .label = labelOf(lead)});
  if (options.isEmpty() && m_leads.value())
    options.append({.key = {}, .label = u"Sample lead (add leads to preview a real one)"_s});
  // The service may have chosen one that is not among the first.
  else if (!lead().isEmpty() && !listed(lead()))
    options.prepend({.key = lead(), .label = to()});
  return options;
}

QString SequencePreview::leadsNote() const {
  if (m_leads.value()) return {};
  return leadsFailed() ? u"Couldn’t load leads"_s : u"Loading leads…"_s;
}

bool SequencePreview::leadsFailed() const {
  return !m_leads.value() && (m_leads.state().isOffline() || m_leads.state().error());
}

const CampaignLead* SequencePreview::listed(const QString& id) const {
  const LeadPage* page = m_leads.value();
  if (!page) return nullptr;
  const auto found = std::ranges::find(page->items, id, &CampaignLead::id);
  return found == page->items.end() ? nullptr : &*found;
}

QString SequencePreview::lead() const {
  if (!m_chosenLead.isEmpty()) return m_chosenLead;
  const PreviewResponse* answer = response();
  return answer && answer->lead ? answer->lead->id.value_or(QString()) : QString();
}

void SequencePreview::setLead(const QString& id) {
  if (id == lead()) return;
  m_chosenLead = id;
  m_wait.reset();
  if (!m_draft.steps().isEmpty()) m_answer.ask();
  Q_EMIT changed();
}

std::optional<QString> SequencePreview::leadId() const {
  const QString id = lead();
  return id.isEmpty() ? std::nullopt : std::optional(id);
}

QString SequencePreview::leadName() const {
  if (lead().isEmpty()) return {};
  const CampaignLead* known = listed(lead());
  return known ? orv::leadName(*known) : to();
}

QString SequencePreview::from() const {
  const PreviewResponse* answer = response();
  if (!answer || !answer->sender) return {};
  const QString name = answer->sender->displayName.value_or(QString());
  const QString address = shownName(answer->sender->address);
  return name.isEmpty() ? address : shownName(name) + u", "_s + address;
}

QString SequencePreview::to() const {
  const PreviewResponse* answer = response();
  return answer && answer->lead ? answer->lead->email : QString();
}

const PreviewResponse::Step* SequencePreview::stepAt(qsizetype place) const {
  const PreviewResponse* answer = response();
  if (!answer) return nullptr;
  const auto found = std::ranges::find(answer->steps, place + 1, &PreviewResponse::Step::position);
  return found == answer->steps.end() ? nullptr : &*found;
}

/// The one that the editor shows.
const PreviewResponse::Variant* SequencePreview::variant() const {
  const auto* shown = step();
  if (!shown || shown->variants.isEmpty()) return nullptr;
  const auto found = std::ranges::find(shown->variants, m_letter, &PreviewResponse::Variant::label);
  return found == shown->variants.end() ? &shown->variants.first() : &*found;
}

QString SequencePreview::subject() const {
  const auto* shown = variant();
  if (!shown) return {};
  const bool isReply = m_draft.steps().size() > m_place && m_draft.repliesInThread(m_place);
  const QString subject = isReply && shown->subject.isEmpty() ? threadSubject() : shown->subject;
  return subject.isEmpty() ? u"(no subject)"_s : subject;
}

/// As a mail program shows a reply: by the subject of the email that began the thread, in the variant that this lead
/// got of it.
QString SequencePreview::threadSubject() const {
  qsizetype opening = m_place;
  while (m_draft.repliesInThread(opening)) --opening;
  const auto* first = stepAt(opening);
  if (!first || first->variants.isEmpty()) return {};
  const auto picked = std::ranges::find(first->variants, true, &PreviewResponse::Variant::picked);
  const QString subject = (picked == first->variants.end() ? first->variants.first() : *picked).subject;
  return subject.isEmpty() || subject.startsWith("Re:"_L1, Qt::CaseInsensitive) ? subject : u"Re: "_s + subject;
}

QString SequencePreview::body() const { return variant() ? variant()->body : QString(); }
QString SequencePreview::letter() const { return variant() ? variant()->label : QString(); }

QString SequencePreview::pickedText() const {
  const auto* shown = step();
  if (!shown || !variant()) return {};
  if (variant()->picked) return u"picked for this lead"_s;
  const auto picked = std::ranges::find(shown->variants, true, &PreviewResponse::Variant::picked);
  return picked == shown->variants.end() ? QString() : u"this lead gets variant "_s + shownName(picked->label);
}

QStringList SequencePreview::warnings() const {
  const auto* shown = step();
  if (!shown) return {};
  QStringList lines;
  for (const auto& one : shown->variants)
    for (const QString& line : linesOf(one))
      lines.append(shown->variants.size() > 1 ? one.label + u": "_s + line : line);
  return lines;
}

/// What was found in a variant as rendered; the draft may have moved on, and no longer know it.
QStringList SequencePreview::linesOf(const PreviewResponse::Variant& rendered) const {
  const auto& steps = m_draft.steps();
  if (m_place >= steps.size()) return rendered.warnings;
  const auto written = std::ranges::find(steps[m_place].variants, rendered.label, &DraftVariant::label);
  if (written == steps[m_place].variants.end()) return rendered.warnings;
  const Campaign* campaign = m_context.campaign.value();
  const bool replies = steps[m_place].sameThread && (m_place > 0 || (campaign && campaign->parent));
  return findingsIn(rendered, {written->subject, written->body}, response()->variables, !replies).lines;
}

QString SequencePreview::message() const {
  QString reason = m_answer.message().isEmpty() ? m_refreshError : m_answer.message();
  if (m_answer.state().isOffline()) reason = APIError::of(APIError::Kind::offline).message();
  return reason.isEmpty() ? QString() : u"Preview failed. "_s + reason;
}

void SequencePreview::close() {
  m_wait.reset();
  Store::close();
}

}  // namespace orv
