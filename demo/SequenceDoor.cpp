#include "demo/SequenceDoor.h"

#include "demo/Enrolment.h"
#include "demo/Rendering.h"
#include "kit/models/campaigns/testEmail.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr int testEmailTakesSeconds = 2;

CampaignLead sampleLead() {
  CampaignLead lead;
  lead.email = u"sam@sample.example"_s;
  lead.firstName = u"Sam"_s;
  lead.lastName = u"Sample"_s;
  lead.company = u"Sample Ltd"_s;
  return lead;
}

/// The variant a lead gets, by weight among the enabled ones; -1 when there is none.
qsizetype pickVariant(const QList<VariantIn>& variants, DemoRandom random) {
  qint64 total = 0;
  for (const VariantIn& variant : variants) total += variant.enabled ? variant.weight : 0;
  qint64 at = random.below(total);
  for (qsizetype i = 0; i < variants.size(); ++i) {
    if (!variants[i].enabled) continue;
    at -= variants[i].weight;
    if (at < 0) return i;
  }
  return -1;
}

/// Always the same for the same lead and step.
DemoRandom randomFor(const CampaignLead& lead, qint64 position) {
  quint64 seed = quint64(position);
  for (const QChar c : lead.id) seed = seed * 31 + c.unicode();
  return DemoRandom(seed);
}

QcCheck checkOf(const QString& key, const QString& label, bool fine, const QString& otherwise,
                const QString& status = u"fail"_s) {
  return {key, label, fine ? u"pass"_s : status, fine ? u"Fine."_s : otherwise, {}};
}

/// What was sent stays sent, wherever the step or the variant stands now.
void keepStats(QList<CampaignStep>& saved, const QList<CampaignStep>& before) {
  QHash<QString, std::optional<Stats4>> stats;
  for (const CampaignStep& step : before) {
    stats.insert(step.id, step.stats);
    for (const CampaignVariant& variant : step.variants) stats.insert(variant.id, variant.stats);
  }
  for (CampaignStep& step : saved) {
    step.stats = stats.value(step.id);
    for (CampaignVariant& variant : step.variants) variant.stats = stats.value(variant.id);
  }
}

}  // namespace

std::optional<HTTPAnswer> SequenceDoor::answer(const DemoRequest& request, const QString& call) {
  if (call == "PUT steps"_L1) return save(request);
  if (call == "POST preview"_L1) return preview(request);
  if (call == "POST qc"_L1) return keepCheck();
  if (call == "POST test-email"_L1) return sendTest(request);
  return std::nullopt;
}

HTTPAnswer SequenceDoor::save(const DemoRequest& request) {
  const auto body = bodyOf<StepsBody>(request);
  if (!body) return invalid(u"These steps can’t be read."_s, u"steps"_s);
  QList<CampaignStep> saved;
  for (const StepIn& in : body->steps) {
    const qint64 position = saved.size() + 1;
    if (in.variants.isEmpty())
      return invalid(u"Email %1 has no text."_s.arg(position), u"steps.%1.variants"_s.arg(position - 1));
    CampaignStep step{in.id.value_or(m_context.random.id(u"st"_s)), position, in.delayMinutes, in.sameThread, {}, {}};
    for (const VariantIn& variant : in.variants)
      step.variants.append({variant.id.value_or(m_context.random.id(u"va"_s)),
                            variant.label,
                            variant.subject,
                            variant.body,
                            variant.weight,
                            variant.enabled,
                            {}});
    saved.append(step);
  }
  keepStats(saved, m_campaign.steps());
  m_campaign.record.steps = saved;
  if (m_campaign.record.qc) m_campaign.record.qc->current = false;
  return changed(m_campaign);
}

HTTPAnswer SequenceDoor::preview(const DemoRequest& request) const {
  const auto body = bodyOf<PreviewBody>(request);
  if (!body) return invalid(u"These steps can’t be read."_s, u"steps"_s);
  const auto lead = leadFor(body->leadId);
  if (!lead) return problemAnswer(404, u"not_found"_s, u"This lead is no longer in the campaign"_s);
  const QList<StepIn> steps = body->steps ? *body->steps : savedSteps();

  PreviewResponse response;
  response.lead = {lead->id.isEmpty() ? std::nullopt : std::optional(lead->id), lead->email, lead->data};
  if (const auto from = sender()) response.sender = {from->address, from->displayName};
  for (qint64 position = 1; position <= steps.size(); ++position)
    response.steps.append(PreviewResponse::Step{position, {}});
  for (const QcPreview& variant : rendered(steps, *lead)) response.steps[variant.position - 1].variants.append(variant);

  const auto values = valuesOf(*lead, sender());
  response.variables.emplace();
  for (const QString& name : standardVariables())
    response.variables->append({name, values.contains(name) ? std::optional(values[name]) : std::nullopt, true, {}});
  for (const auto& [name, value] : values.asKeyValueRange())
    if (!standardVariables().contains(name)) response.variables->append({name, value, false, {}});
  return jsonAnswer(toJSON(response));
}

HTTPAnswer SequenceDoor::keepCheck() {
  m_campaign.record.qc = check();
  return jsonAnswer(toJSON(*m_campaign.record.qc));
}

Qc SequenceDoor::check() const {
  enrol(m_campaign, m_context.now);
  const auto& steps = m_campaign.steps();
  const bool written = !steps.isEmpty() && std::ranges::all_of(steps, [](const CampaignStep& step) {
    return std::ranges::any_of(step.variants, [](const CampaignVariant& variant) {
      return variant.enabled && !variant.body.trimmed().isEmpty();
    });
  });
  const auto& first = steps.isEmpty() ? QList<CampaignVariant>() : steps.first().variants;
  const bool titled = std::ranges::none_of(first, [](const auto& variant) { return variant.subject.isEmpty(); });
  const QStringList missing = missingValues();

  Qc qc;
  qc.checkedAt = m_context.stamp();
  qc.current = true;
  qc.checks = {
      checkOf(u"steps"_s, u"Sequence"_s, written, u"Write every email of the sequence."_s),
      checkOf(u"senders"_s, u"Senders"_s, sender().has_value(), u"Choose at least one inbox that is ready to send."_s),
      checkOf(u"leads"_s, u"Leads"_s, m_campaign.stats().leads.total > 0, u"Add at least one lead."_s),
      checkOf(u"subject"_s, u"Subject"_s, titled, u"The first email has no subject."_s, u"warn"_s),
      checkOf(u"variables"_s, u"Variables"_s, missing.isEmpty(), u"Some leads have no value for these."_s, u"warn"_s),
      checkOf(u"unsubscribe"_s, u"Way out"_s, offersUnsubscribing(), u"Nothing tells people how to unsubscribe."_s,
              u"warn"_s),
  };
  if (!missing.isEmpty()) qc.checks[4].items = missing;
  qc.passed = std::ranges::none_of(qc.checks, [](const QcCheck& one) { return one.status == "fail"_L1; });

  const CampaignLead sample = leadFor(std::nullopt).value_or(sampleLead());
  qc.lead = sample.email;
  qc.previews = rendered(savedSteps(), sample);
  // All leads of the sample are other companies' people.
  Qc::External external{m_campaign.stats().leads.total, {}};
  for (const CampaignLead& lead : std::as_const(m_campaign.leads)) {
    if (external.sample.size() == 3) break;
    if (!lead.removedAt) external.sample.append(lead.email);
  }
  qc.external = external;
  return qc;
}

HTTPAnswer SequenceDoor::sendTest(const DemoRequest& request) {
  const auto body = bodyOf<TestEmailBody>(request);
  if (!body || !body->to.contains(u'@')) return invalid(u"Enter an email address."_s, u"to"_s);
  const auto from = sender();
  if (!from) return problemAnswer(422, u"not_ready"_s, u"No inbox is ready to send"_s);
  const auto lead = leadFor(body->leadId);
  if (!lead) return problemAnswer(404, u"not_found"_s, u"This lead is no longer in the campaign"_s);
  const auto& steps = m_campaign.steps();
  if (body->stepPosition < 1 || body->stepPosition > steps.size() || steps[body->stepPosition - 1].variants.isEmpty())
    return invalid(u"This email is no longer in the sequence."_s, u"stepPosition"_s);

  const auto& variants = steps[body->stepPosition - 1].variants;
  const auto variant = std::ranges::find(variants, body->variantId.value_or(QString()), &CampaignVariant::id);
  const auto& saved = variant == variants.end() ? variants.first() : *variant;
  const auto random = randomFor(*lead, body->stepPosition);
  const auto values = valuesOf(*lead, from);
  const Rendering subject = render(body->subject.value_or(saved.subject), values, random);
  TestEmail test{m_context.random.id(u"te"_s), u"queued"_s, from->address, body->to, subject.text, {}, {}};
  QList<QString> warnings = subject.missing + render(body->body.value_or(saved.body), values, random).missing;
  if (!warnings.isEmpty()) test.warnings = warnings;
  m_context.workspace.testEmails.insert(test.id, {test, m_context.now});
  return jsonAnswer(toJSON(test), 202);
}

HTTPAnswer SequenceDoor::testEmailState(const DoorContext& context, const QString& id) {
  const auto found = context.workspace.testEmails.constFind(id);
  if (found == context.workspace.testEmails.constEnd())
    return problemAnswer(404, u"not_found"_s, u"This test is not known"_s);
  TestEmail test = found->record;
  if (found->startedAt.secsTo(context.now) >= testEmailTakesSeconds) {
    // An address nobody has, so that a refusal can be seen as well.
    const bool refused = test.to.value_or(QString()).startsWith("bounce@"_L1);
    test.state = refused ? u"failed"_s : u"sent"_s;
    if (refused) test.error = u"550 5.1.1 No such user"_s;
  }
  return jsonAnswer(toJSON(test));
}

HTTPAnswer SequenceDoor::spin(const DemoRequest& request) {
  const auto body = bodyOf<SpintaxBody>(request);
  if (!body || body->text.trimmed().isEmpty()) return invalid(u"Write the email first."_s, u"text"_s);
  return jsonAnswer(toJSON(SpintaxOut{withOptions(body->text)}));
}

/// The lead asked for, else the first there is, else one made up. Nothing when it is not in the campaign.
std::optional<CampaignLead> SequenceDoor::leadFor(const std::optional<QString>& id) const {
  enrol(m_campaign, m_context.now);
  for (const CampaignLead& lead : std::as_const(m_campaign.leads))
    if (id ? lead.id == *id : !lead.removedAt) return lead;
  return id ? std::nullopt : std::optional(sampleLead());
}

QList<StepIn> SequenceDoor::savedSteps() const {
  QList<StepIn> steps;
  for (const CampaignStep& step : m_campaign.steps()) {
    StepIn in{step.id, step.delayMinutes, step.sameThread, {}};
    for (const CampaignVariant& variant : step.variants)
      in.variants.append({variant.id, variant.label, variant.subject, variant.body, variant.weight, variant.enabled});
    steps.append(in);
  }
  return steps;
}

std::optional<CampaignSender> SequenceDoor::sender() const {
  const auto& senders = m_campaign.senders();
  const auto ready = std::ranges::find(senders, true, &CampaignSender::ready);
  return ready == senders.end() ? std::nullopt : std::optional(*ready);
}

QList<QcPreview> SequenceDoor::rendered(const QList<StepIn>& steps, const CampaignLead& lead) const {
  const auto values = valuesOf(lead, sender());
  QList<QcPreview> previews;
  for (qint64 position = 1; position <= steps.size(); ++position) {
    const StepIn& step = steps[position - 1];
    const DemoRandom random = randomFor(lead, position);
    const qsizetype picked = pickVariant(step.variants, random);
    for (qsizetype i = 0; i < step.variants.size(); ++i) {
      const VariantIn& variant = step.variants[i];
      const Rendering subject = render(variant.subject, values, random), body = render(variant.body, values, random);
      QcPreview preview{position, variant.label, subject.text, body.text, i == picked, {}};
      for (const QString& name : subject.missing + body.missing)
        preview.warnings.append(u"No value for {{%1}}."_s.arg(name));
      if (position == 1 && variant.subject.isEmpty()) preview.warnings.append(u"The subject is empty."_s);
      previews.append(preview);
    }
  }
  return previews;
}

/// Variables of the sequence that some lead has no value for.
QStringList SequenceDoor::missingValues() const {
  QStringList used;
  for (const CampaignStep& step : m_campaign.steps())
    for (const CampaignVariant& variant : step.variants) used += variablesIn(variant.subject + variant.body);
  used.removeDuplicates();
  const auto from = sender();
  used.removeIf([&](const QString& name) {
    return std::ranges::all_of(m_campaign.leads, [&](const CampaignLead& lead) {
      return lead.removedAt || valuesOf(lead, from).contains(name);
    });
  });
  return used;
}

bool SequenceDoor::offersUnsubscribing() const {
  const auto& settings = m_campaign.record.settings;
  if (settings && settings->unsubscribeHeader.value_or(false)) return true;
  return std::ranges::any_of(m_campaign.steps(), [](const CampaignStep& step) {
    return std::ranges::any_of(step.variants, [](const CampaignVariant& variant) {
      return variant.body.contains("unsubscribe"_L1, Qt::CaseInsensitive);
    });
  });
}

}  // namespace orv::demo
