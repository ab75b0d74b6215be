#include "app/campaigns/ProofWall.h"

#include "app/base/shownName.h"
#include "app/campaigns/EmailFindings.h"
#include "app/campaigns/LeadRows.h"
#include "kit/api/Format.h"
#include "kit/models/campaigns/campaignLeadRequests.h"
#include "kit/models/campaigns/campaignRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(ProofEmail)

namespace {

/// What an email can say of the lead.
CampaignLead factsOf(const CampaignLead& lead) {
  CampaignLead facts;
  facts.id = lead.id;
  facts.email = lead.email;
  facts.website = lead.website;
  facts.firstName = lead.firstName;
  facts.lastName = lead.lastName;
  facts.company = lead.company;
  facts.title = lead.title;
  facts.data = lead.data;
  facts.senderAddress = lead.senderAddress;
  return facts;
}

/// What an email can say of who sends it: today's figures are no part of that.
QList<CampaignSender> factsOf(QList<CampaignSender> senders) {
  for (CampaignSender& sender : senders) {
    sender.status.clear();
    sender.reason.reset();
    sender.capToday = sender.sentToday = 0;
    sender.rampToday.reset();
  }
  return senders;
}

StepIn factsOf(const StepIn& email) {
  StepIn facts = withoutIds({email}).first();
  facts.delayMinutes = 0;
  return facts;
}

const VariantIn* variantOf(const StepIn& email, const QString& letter) {
  const auto found = std::ranges::find(email.variants, letter, &VariantIn::label);
  return found == email.variants.end() ? nullptr : &*found;
}

/// The same lead gets the same variant of both.
bool sharesAlike(const StepIn& one, const StepIn& other) {
  return std::ranges::equal(one.variants, other.variants, [](const VariantIn& a, const VariantIn& b) {
    return a.label == b.label && a.weight == b.weight && a.enabled == b.enabled;
  });
}

/// The lead is the reason, so that the others can be rendered all the same.
bool isAboutLead(const APIError& error) {
  const int status = error.context().httpStatus;
  return error.is(APIError::Kind::problem) && (status == 404 || status == 422);
}

}  // namespace

ProofWall::ProofWall(CampaignContext& context, const SequenceAutosave& autosave, Ways ways)
    : Store(context.workspace, &context.whole),
      m_context(context),
      m_autosave(autosave),
      m_ways(std::move(ways)),
      m_leads(*this,
              [this] {
                return m_context.api.send(Requests::listLeads(m_context.id, {leadsAtMost, {}, false, {}}));
              },
              {.loadsByItself = false}) {
  connect(&m_leads, &ResourceBase::valueChanged, this, &ProofWall::chooseLeads);
  connect(&m_leads, &ResourceBase::changed, this, &ProofWall::changed);
  connect(&context.campaign, &ResourceBase::valueChanged, this, &ProofWall::follow);
  connect(&autosave, &SequenceAutosave::typed, this, &ProofWall::follow);
  connect(&context.workspace, &WorkspaceContext::reachable, this, [this] {
    if (m_isOffline && !m_failure.isEmpty()) goOn();
  });
}

const QcPreview* ProofWall::Kept::picked() const {
  const auto found = std::ranges::find(variants, true, &QcPreview::picked);
  return found == variants.end() ? nullptr : &*found;
}

void ProofWall::setWatched(bool watched) {
  if (std::exchange(m_watched, watched) == watched) return;
  if (watched) {
    // Leads come, go and are mended in another tab.
    m_leads.appear();
    m_failure.clear();
    m_leads.load();
    follow();
  } else {
    m_leads.disappear();
    m_run.cancel();
  }
  Q_EMIT changed();
}

void ProofWall::refresh() {
  m_kept.clear();
  m_run.cancel();
  m_failure.clear();
  follow();
  if (m_leads.isAsked()) m_leads.load();
}

const CampaignLead* ProofWall::find(const QString& lead) const {
  const LeadPage* page = m_leads.value();
  if (!page) return nullptr;
  const auto found = std::ranges::find(page->items, lead, &CampaignLead::id);
  return found == page->items.end() ? nullptr : &*found;
}

void ProofWall::chooseLeads() {
  QStringList all, waiting;
  for (const CampaignLead& lead : m_leads.value()->items) {
    all.append(lead.id);
    if (!lead.firstSentAt) waiting.append(lead.id);
  }
  m_waiting = waiting.isEmpty() ? all : waiting;
  follow();
}

void ProofWall::showOthers() {
  m_from += most;
  m_current.clear();
  follow();
}

void ProofWall::follow() {
  if (!m_watched) return;
  if (m_from >= m_waiting.size()) m_from = 0;
  m_shown = m_autosave.draft().steps().isEmpty() ? QStringList() : m_waiting.mid(m_from, most);
  if (!m_shown.contains(m_current)) m_current = m_shown.value(0);
  show();
  run();
}

std::optional<ProofWall::Question> ProofWall::question(const QString& lead) const {
  const Campaign* campaign = m_context.campaign.value();
  const CampaignLead* known = find(lead);
  const auto emails = m_autosave.draft().inputs();
  if (!campaign || !known || emails.isEmpty()) return std::nullopt;
  return Question{factsOf(*known), factsOf(emails.first()),
                  factsOf(campaign->senders.value_or(QList<CampaignSender>()))};
}

bool ProofWall::isFresh(const Kept& kept, const Question& asked) const {
  if (kept.asked.lead != asked.lead || kept.asked.senders != asked.senders) return false;
  if (kept.asked.email == asked.email) return true;
  const QcPreview* picked = kept.picked();
  if (!picked || !sharesAlike(kept.asked.email, asked.email)) return false;
  const VariantIn *before = variantOf(kept.asked.email, picked->label), *now = variantOf(asked.email, picked->label);
  return before && now && *before == *now;
}

/// The first of those shown whose rendering is not there, or of something else; empty when there is none.
QString ProofWall::nextLead() const {
  for (const QString& lead : m_shown) {
    const auto asked = question(lead);
    const auto kept = m_kept.constFind(lead);
    if (asked && (kept == m_kept.cend() || !isFresh(*kept, *asked))) return lead;
  }
  return {};
}

void ProofWall::run() {
  if (m_watched && m_failure.isEmpty() && m_run.isIdle() && !nextLead().isEmpty()) m_run.start(renderTask());
}

Task<void> ProofWall::renderTask() {
  for (QString lead = nextLead(); !lead.isEmpty() && m_failure.isEmpty(); lead = nextLead()) {
    co_await renderOne(*question(lead));
    show();
  }
}

Task<void> ProofWall::renderOne(Question asked) {
  Kept kept{asked, {}, {}, {}};
  try {
    const auto answer = co_await m_context.api.send(
        Requests::previewCampaign(m_context.id, {asked.lead.id, QList<StepIn>{asked.email}}));
    if (!answer.steps.isEmpty()) kept.variants = answer.steps.first().variants;
    kept.variables = answer.variables;
    m_context.workspace.cameOnline();
  } catch (const APIError& error) {
    if (!isAboutLead(error)) {
      m_failure = error.message();
      m_isOffline = error.is(APIError::Kind::offline);
      if (m_isOffline) m_context.workspace.wentOffline();
      co_return;
    }
    kept.refusal = error.message();
  }
  m_kept.insert(asked.lead.id, kept);
}

void ProofWall::retry() {
  m_kept.removeIf([](const auto& kept) { return !kept.value().refusal.isEmpty(); });
  goOn();
}

void ProofWall::goOn() {
  m_failure.clear();
  if (m_watched && !m_leads.value()) m_leads.load();
  follow();
}

void ProofWall::setCurrent(const QString& lead) {
  if (lead == m_current || !m_shown.contains(lead)) return;
  m_current = lead;
  show();
}

/// A subsequence begins in the conversation that its lead is in.
bool ProofWall::replies() const {
  const Campaign* campaign = m_context.campaign.value();
  const auto& steps = m_autosave.draft().steps();
  return campaign && campaign->parent && !steps.isEmpty() && steps.first().sameThread;
}

void ProofWall::describe(ProofEmail& email, const Kept& kept) const {
  email.state = u"wrong"_s;
  if (!kept.refusal.isEmpty()) {
    email.findings = {kept.refusal};
    email.inLead = true;
    return;
  }
  const QcPreview* picked = kept.picked();
  if (!picked) {
    email.findings = {u"No variant of this email is on."_s};
    return;
  }
  const VariantIn* written = variantOf(kept.asked.email, picked->label);
  const EmailTexts texts = written ? EmailTexts{written->subject, written->body} : EmailTexts();
  const EmailFindings found = findingsIn(*picked, texts, kept.variables, !replies());
  if (kept.variants.size() > 1) email.letter = picked->label;
  email.subject = !picked->subject.isEmpty() ? picked->subject : replies() ? u"Re: same thread"_s : u"(no subject)"_s;
  email.subjectIsWrong = found.subjectIsWrong;
  email.body = found.body.split(u'\n');
  for (const auto& place : found.wrong) email.wrong += {int(place.start), int(place.length)};
  email.findings = found.lines;
  if (!found.reading.isEmpty()) email.findings.append(u"It reads “%1”."_s.arg(shownName(found.reading)));
  email.inLead = found.inLead;
  if (found.lines.isEmpty()) email.state = u"right"_s;
}

ProofEmail ProofWall::email(const QString& id) const {
  ProofEmail email;
  const CampaignLead& lead = *find(id);
  email.id = id;
  email.name = leadName(lead);
  email.company = lead.company.value_or(QString());
  email.state = u"waiting"_s;
  email.current = id == m_current;
  const auto kept = m_kept.constFind(id);
  const auto asked = question(id);
  if (kept != m_kept.cend() && asked && isFresh(*kept, *asked)) describe(email, *kept);
  QStringList words{u"%1 of %2"_s.arg(m_shown.indexOf(id) + 1).arg(m_shown.size()), shownName(email.name)};
  if (!email.company.isEmpty()) words.append(shownName(email.company));
  if (!email.letter.isEmpty()) words.append(u"variant "_s + shownName(email.letter));
  words.append(email.state == "right"_L1   ? u"looks right"_s
               : email.state == "wrong"_L1 ? u"look at this"_s
                                           : u"not rendered yet"_s);
  email.words = words.join(u", "_s);
  return email;
}

void ProofWall::show() {
  std::vector<ProofEmail> emails;
  for (const QString& lead : m_shown)
    if (find(lead)) emails.push_back(email(lead));
  m_emails.update(std::move(emails));
  Q_EMIT changed();
}

QString ProofWall::note() const {
  const Campaign* campaign = m_context.campaign.value();
  if (m_shown.isEmpty() || !campaign) return {};
  const qint64 shown = m_shown.size(), total = campaign->stats ? campaign->stats->leads.total : shown;
  const QString whom = total > shown ? u"For %1 of %2"_s.arg(QString::number(shown), countedLeads(total))
                       : shown == 1  ? u"For the one lead there is"_s
                                     : u"For all %1"_s.arg(countedLeads(shown));
  return whom + (shown == 1 ? u", with their own variant and spin text."_s
                            : u", each with their own variant and spin text."_s);
}

QString ProofWall::lacking() const {
  if (!m_context.campaign.value()) return {};
  if (m_autosave.draft().steps().isEmpty()) return u"sequence"_s;
  return m_leads.value() && m_waiting.isEmpty() && !m_context.campaign.value()->parent ? u"leads"_s : QString();
}

QString ProofWall::nothing() const {
  const QString tab = lacking();
  if (tab == "sequence"_L1) return u"Write the first email, and it is shown here for twelve of the leads."_s;
  if (tab == "leads"_L1) return u"Add leads, and the first email is shown here for twelve of them."_s;
  if (m_leads.value() && m_waiting.isEmpty())
    return u"Leads come in when a reply gets one of the labels; the first email is shown here for them then."_s;
  return {};
}

QString ProofWall::message() const {
  const bool isOffline = m_leads.state().isOffline();
  const QString leads = isOffline ? APIError::of(APIError::Kind::offline).message() : m_leads.message();
  if (!m_leads.value() && !leads.isEmpty()) return u"Couldn’t load leads. "_s + leads;
  return m_failure.isEmpty() ? QString() : u"Preview failed. "_s + m_failure;
}

QString ProofWall::verdict() const {
  const auto& emails = m_emails.records();
  const auto there = std::ranges::count_if(emails, [](const ProofEmail& email) { return email.state != "waiting"_L1; });
  if (there == 0) return {};
  const qint64 right = there - wrongCount();
  return u"%1 of %2 %3"_s.arg(right).arg(there).arg(right == 1 ? u"looks right"_s : u"look right"_s);
}

int ProofWall::wrongCount() const {
  return int(std::ranges::count(m_emails.records(), u"wrong"_s, &ProofEmail::state));
}

void ProofWall::openLead(const QString& lead) {
  if (const CampaignLead* known = find(lead)) m_ways.openLead(CampaignLead(*known));
}

void ProofWall::openText(const QString& lead) {
  const auto kept = m_kept.constFind(lead);
  const QcPreview* picked = kept == m_kept.cend() ? nullptr : kept->picked();
  m_ways.openText(lead, picked ? picked->label : QString());
}

void ProofWall::open(const QString& lead) {
  const int row = m_emails.rowOf(lead);
  if (row >= 0) m_emails.records()[size_t(row)].inLead ? openLead(lead) : openText(lead);
}

void ProofWall::close() {
  m_run.cancel();
  Store::close();
}

}  // namespace orv
