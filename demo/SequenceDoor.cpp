#include "demo/SequenceDoor.h"

#include "demo/CampaignDoor.h"
#include "demo/Enrolment.h"
#include "demo/Rendering.h"
#include "kit/models/campaigns/emailPreview.h"
#include "kit/models/campaigns/launchCheck.h"
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

QcCheck checked(const QString& key, const QString& label, bool fine, const QString& otherwise,
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

HTTPAnswer noSuchLead() { return notFound(u"This lead is no longer in the campaign"_s); }

/// The lead asked for, else the first there is, else one made up. Nothing when it is not in the campaign.
std::optional<CampaignLead> leadFor(DemoCampaign& campaign, const std::optional<QString>& id, const QDateTime& now) {
  enrol(campaign, now);
  for (const CampaignLead& lead : std::as_const(campaign.leads))
    if (id ? lead.id == *id : !lead.removedAt) return lead;
  return id ? std::nullopt : std::optional(sampleLead());
}

QList<StepIn> savedSteps(const DemoCampaign& campaign) {
  QList<StepIn> steps;
  for (const CampaignStep& step : campaign.steps()) {
    StepIn in{step.id, step.delayMinutes, step.sameThread, {}};
    for (const CampaignVariant& variant : step.variants)
      in.variants.append({variant.id, variant.label, variant.subject, variant.body, variant.weight, variant.enabled});
    steps.append(in);
  }
  return steps;
}

std::optional<CampaignSender> readySender(const DemoCampaign& campaign) {
  const auto& senders = campaign.senders();
  const auto ready = std::ranges::find(senders, true, &CampaignSender::ready);
  return ready == senders.end() ? std::nullopt : std::optional(*ready);
}

QList<QcPreview> rendered(const DemoCampaign& campaign, const QList<StepIn>& steps, const CampaignLead& lead) {
  const auto values = valuesOf(lead, readySender(campaign));
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
QStringList missingValues(const DemoCampaign& campaign) {
  QStringList used;
  for (const CampaignStep& step : campaign.steps())
    for (const CampaignVariant& variant : step.variants) used += variablesIn(variant.subject + variant.body);
  used.removeDuplicates();
  const auto from = readySender(campaign);
  used.removeIf([&](const QString& name) {
    return std::ranges::all_of(campaign.leads, [&](const CampaignLead& lead) {
      return lead.removedAt || valuesOf(lead, from).contains(name);
    });
  });
  return used;
}

bool offersUnsubscribing(const DemoCampaign& campaign) {
  const auto& settings = campaign.record.settings;
  if (settings && settings->unsubscribeHeader.value_or(false)) return true;
  return std::ranges::any_of(campaign.steps(), [](const CampaignStep& step) {
    return std::ranges::any_of(step.variants, [](const CampaignVariant& variant) {
      return variant.body.contains("unsubscribe"_L1, Qt::CaseInsensitive);
    });
  });
}

HTTPAnswer save(Call& call, DemoCampaign& campaign) {
  const auto body = call.request.bodyAs<StepsBody>();
  if (!body) return invalid(u"These steps can’t be read."_s, u"steps"_s);
  QList<CampaignStep> saved;
  for (const StepIn& in : body->steps) {
    const qint64 position = saved.size() + 1;
    if (in.variants.isEmpty())
      return invalid(u"Email %1 has no text."_s.arg(position), u"steps.%1.variants"_s.arg(position - 1));
    CampaignStep step{in.id.value_or(call.random.id(u"st"_s)), position, in.delayMinutes, in.sameThread, {}, {}};
    for (const VariantIn& variant : in.variants)
      step.variants.append({variant.id.value_or(call.random.id(u"va"_s)),
                            variant.label,
                            variant.subject,
                            variant.body,
                            variant.weight,
                            variant.enabled,
                            {}});
    saved.append(step);
  }
  keepStats(saved, campaign.steps());
  campaign.record.steps = saved;
  if (campaign.record.qc) campaign.record.qc->current = false;
  return changedAnswer(call, campaign);
}

HTTPAnswer preview(Call& call, DemoCampaign& campaign) {
  const auto body = call.request.bodyAs<PreviewBody>();
  if (!body) return invalid(u"These steps can’t be read."_s, u"steps"_s);
  const auto lead = leadFor(campaign, body->leadId, call.now);
  if (!lead) return noSuchLead();
  const QList<StepIn> steps = body->steps ? *body->steps : savedSteps(campaign);

  PreviewResponse response;
  response.lead = {lead->id.isEmpty() ? std::nullopt : std::optional(lead->id), lead->email, lead->data};
  if (const auto from = readySender(campaign)) response.sender = {from->address, from->displayName};
  for (qint64 position = 1; position <= steps.size(); ++position)
    response.steps.append(PreviewResponse::Step{position, {}});
  for (const QcPreview& variant : rendered(campaign, steps, *lead))
    response.steps[variant.position - 1].variants.append(variant);

  const auto values = valuesOf(*lead, readySender(campaign));
  response.variables.emplace();
  for (const QString& name : standardVariables())
    response.variables->append({name, values.contains(name) ? std::optional(values[name]) : std::nullopt, true, {}});
  for (const auto& [name, value] : values.asKeyValueRange())
    if (!standardVariables().contains(name)) response.variables->append({name, value, false, {}});
  return jsonAnswer(toJSON(response));
}

HTTPAnswer keepCheck(Call& call, DemoCampaign& campaign) {
  campaign.record.qc = checkOf(campaign, call.now);
  return jsonAnswer(toJSON(*campaign.record.qc));
}

HTTPAnswer sendTest(Call& call, DemoCampaign& campaign) {
  const auto body = call.request.bodyAs<TestEmailBody>();
  if (!body || !body->to.contains(u'@')) return invalid(u"Enter an email address."_s, u"to"_s);
  const auto from = readySender(campaign);
  if (!from) return problemAnswer(422, u"not_ready"_s, u"No inbox is ready to send"_s);
  const auto lead = leadFor(campaign, body->leadId, call.now);
  if (!lead) return noSuchLead();
  const auto& steps = campaign.steps();
  if (body->stepPosition < 1 || body->stepPosition > steps.size() || steps[body->stepPosition - 1].variants.isEmpty())
    return invalid(u"This email is no longer in the sequence."_s, u"stepPosition"_s);

  const auto& variants = steps[body->stepPosition - 1].variants;
  const auto variant = std::ranges::find(variants, body->variantId.value_or(QString()), &CampaignVariant::id);
  const auto& saved = variant == variants.end() ? variants.first() : *variant;
  const auto random = randomFor(*lead, body->stepPosition);
  const auto values = valuesOf(*lead, from);
  const Rendering subject = render(body->subject.value_or(saved.subject), values, random);
  TestEmail test{call.random.id(u"te"_s), u"queued"_s, from->address, body->to, subject.text, {}, {}};
  QList<QString> warnings = subject.missing + render(body->body.value_or(saved.body), values, random).missing;
  if (!warnings.isEmpty()) test.warnings = warnings;
  call.workspace->testEmails.insert(test.id, {test, call.now});
  return jsonAnswer(toJSON(test), 202);
}

HTTPAnswer testEmailState(Call& call) {
  const auto found = call.workspace->testEmails.constFind(call.ids.first());
  if (found == call.workspace->testEmails.constEnd()) return notFound(u"This test is not known"_s);
  TestEmail test = found->record;
  if (found->startedAt.secsTo(call.now) >= testEmailTakesSeconds) {
    // An address nobody has, so that a refusal can be seen as well.
    const bool refused = test.to.value_or(QString()).startsWith("bounce@"_L1);
    test.state = refused ? u"failed"_s : u"sent"_s;
    if (refused) test.error = u"550 5.1.1 No such user"_s;
  }
  return jsonAnswer(toJSON(test));
}

HTTPAnswer spin(Call& call) {
  const auto body = call.request.bodyAs<SpintaxBody>();
  if (!body || body->text.trimmed().isEmpty()) return invalid(u"Write the email first."_s, u"text"_s);
  return jsonAnswer(toJSON(SpintaxOut{withOptions(body->text)}));
}

}  // namespace

Qc checkOf(DemoCampaign& campaign, const QDateTime& now) {
  enrol(campaign, now);
  const auto& steps = campaign.steps();
  const bool written = !steps.isEmpty() && std::ranges::all_of(steps, [](const CampaignStep& step) {
    return std::ranges::any_of(step.variants, [](const CampaignVariant& variant) {
      return variant.enabled && !variant.body.trimmed().isEmpty();
    });
  });
  const auto& first = steps.isEmpty() ? QList<CampaignVariant>() : steps.first().variants;
  const bool titled = std::ranges::none_of(first, [](const auto& variant) { return variant.subject.isEmpty(); });
  const QStringList missing = missingValues(campaign);

  Qc qc;
  qc.checkedAt = formatPlatformDate(now);
  qc.current = true;
  qc.checks = {
      checked(u"steps"_s, u"Sequence"_s, written, u"Write every email of the sequence."_s),
      checked(u"senders"_s, u"Senders"_s, readySender(campaign).has_value(),
              u"Choose at least one inbox that is ready to send."_s),
      checked(u"leads"_s, u"Leads"_s, campaign.stats().leads.total > 0, u"Add at least one lead."_s),
      checked(u"subject"_s, u"Subject"_s, titled, u"The first email has no subject."_s, u"warn"_s),
      checked(u"variables"_s, u"Variables"_s, missing.isEmpty(), u"Some leads have no value for these."_s, u"warn"_s),
      checked(u"unsubscribe"_s, u"Way out"_s, offersUnsubscribing(campaign),
              u"Nothing tells people how to unsubscribe."_s, u"warn"_s),
  };
  if (!missing.isEmpty()) qc.checks[4].items = missing;
  qc.passed = std::ranges::none_of(qc.checks, [](const QcCheck& one) { return one.status == "fail"_L1; });

  const CampaignLead sample = leadFor(campaign, std::nullopt, now).value_or(sampleLead());
  qc.lead = sample.email;
  qc.previews = rendered(campaign, savedSteps(campaign), sample);
  // All leads of the sample are other companies' people.
  Qc::External external{campaign.stats().leads.total, {}};
  for (const CampaignLead& lead : std::as_const(campaign.leads)) {
    if (external.sample.size() == 3) break;
    if (!lead.removedAt) external.sample.append(lead.email);
  }
  qc.external = external;
  return qc;
}

const QList<Route>& sequenceRoutes() {
  static const QList<Route> routes{
      {"PUT", u"/campaigns/{id}/steps"_s, Access::members, onCampaign<save>},
      // Renders what it is sent and keeps nothing.
      {"POST", u"/campaigns/{id}/preview"_s, Access::readers, onCampaign<preview>},
      {"POST", u"/campaigns/{id}/qc"_s, Access::members, onCampaign<keepCheck>},
      {"POST", u"/campaigns/{id}/test-email"_s, Access::members, onCampaign<sendTest>},
      {"GET", u"/test-email/{testId}"_s, Access::readers, testEmailState},
      {"POST", u"/campaigns/spintax"_s, Access::members, spin},
  };
  return routes;
}

}  // namespace orv::demo
