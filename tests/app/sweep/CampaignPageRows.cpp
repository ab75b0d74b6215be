#include <QJsonArray>

#include "app/campaigns/CampaignStore.h"
#include "tests/app/sweep/SweepStage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::test {
namespace {

CampaignStore& page(SweepStage& s) { return s.the<CampaignStore>(); }

QByteArray campaign(const QString& status, const QJsonObject& more = {}) {
  QJsonObject changed{{u"status"_s, status}, {u"parent"_s, QJsonValue()}, {u"launchedAt"_s, QJsonValue()}};
  for (auto member = more.begin(); member != more.end(); ++member) changed.insert(member.key(), member.value());
  return sample(u"Campaign"_s, changed);
}
QByteArray after(const QString& status, QJsonObject more = {}) {
  more.insert(u"version"_s, 90);
  return campaign(status, more);
}
/// What keeps it from being launched: nothing, as the service found a moment ago or long since.
QJsonObject checked(bool isCurrent) {
  const QJsonObject check{
      {u"key"_s, u"links"_s}, {u"label"_s, u"Links"_s}, {u"status"_s, u"pass"_s}, {u"detail"_s, u"None"_s}};
  return {{u"checkedAt"_s, u"2026-11-20T08:00:00Z"_s},
          {u"passed"_s, true},
          {u"current"_s, isCurrent},
          {u"checks"_s, QJsonArray{check}}};
}
const QStringList required{u"id"_s, u"name"_s, u"status"_s};

std::function<void(SweepStage&)> arriveAt(const QByteArray& answer) {
  return [answer](SweepStage& s) {
    s.answers[u"GET /campaigns/c1"_s] = answer;
    s.f.navigator.openItem(Page::campaigns, u"c1"_s);
    auto& store = s.show<CampaignStore>(u"c1"_s);
    store.campaign()->appear();
    store.ensureLoaded();
    s.finish();
  };
}

bool busy(SweepStage& s) { return page(s).busy(); }
QVariant shown(SweepStage& s) { return QStringList{page(s).name(), page(s).statusWord()}; }

SweepRow act(const QString& verb, void (CampaignStore::*act)(), const QByteArray& before, const QString& request,
             const QByteArray& answer) {
  return {u"CampaignStore::"_s + verb,
          arriveAt(before),
          [act](SweepStage& s) { (page(s).*act)(); },
          request,
          answer,
          answer.isEmpty() ? QStringList() : required,
          busy,
          shown};
}

void arriveAtRename(SweepStage& s) {
  arriveAt(campaign(u"running"_s))(s);
  page(s).beginRename();
  page(s).renameForm()->setText(u"Fair"_s);
}

void arriveAtSettings(SweepStage& s) {
  arriveAt(campaign(u"paused"_s))(s);
  page(s).setTab(u"settings"_s);
  page(s).settings()->ensureLoaded();
  s.finish();
  page(s).settings()->draft()->set(u"name"_s, u"Fair"_s);
}
void arriveWithoutTags(SweepStage& s) {
  s.answers[u"GET /tags"_s] = "{}";
  arriveAtSettings(s);
}
void arriveAtSchedule(SweepStage& s) {
  arriveAt(campaign(u"paused"_s))(s);
  page(s).settings()->schedule()->setText(0, u"name"_s, u"Mornings"_s);
}
QJsonObject mornings() {
  const QJsonObject window{{u"name"_s, u"Mornings"_s},
                           {u"days"_s, QJsonArray{1, 2, 5}},
                           {u"start"_s, u"09:00"_s},
                           {u"end"_s, u"17:30"_s},
                           {u"timeZone"_s, u"Europe/Berlin"_s}};
  return {{u"startDate"_s, u"2026-11-23"_s}, {u"schedules"_s, QJsonArray{window}}};
}

void arriveAtNewSubsequence(SweepStage& s) {
  arriveAt(campaign(u"running"_s))(s);
  page(s).setTab(u"subsequences"_s);
  auto& subsequences = *page(s).subsequences();
  subsequences.list()->appear();
  subsequences.ensureLoaded();
  subsequences.beginCreate();
  s.finish();
  subsequences.draft()->set(u"name"_s, u"Warm"_s);
  subsequences.toggleLabel(u"interested"_s);
}

void arriveWithoutLabels(SweepStage& s) {
  s.answers[u"GET /reply-labels"_s] = "{}";
  arriveAtNewSubsequence(s);
}

void arriveAtSequence(SweepStage& s) { arriveAt(campaign(u"paused"_s))(s); }
void arriveAtWritten(SweepStage& s) {
  arriveAtSequence(s);
  page(s).sequence()->setSubject(u"Hello"_s);
}
/// The steps of the sample, as they are saved by then.
QJsonArray savedSteps() {
  const QJsonObject variant{{u"id"_s, u"v1"_s},         {u"label"_s, u"A"_s},
                            {u"subject"_s, u"Hello"_s}, {u"body"_s, u"<p>\"1\"</p>"_s},
                            {u"weight"_s, 50},          {u"enabled"_s, true}};
  return {QJsonObject{{u"id"_s, u"s1"_s},
                      {u"position"_s, 1},
                      {u"delayMinutes"_s, 2880},
                      {u"sameThread"_s, true},
                      {u"variants"_s, QJsonArray{variant}}}};
}
void arriveWithoutPreview(SweepStage& s) {
  s.answers[u"POST /campaigns/c1/preview"_s] = "{}";
  arriveAtSequence(s);
  page(s).sequence()->preview()->setWatched(true);
  s.f.clock.advance(SequencePreview::wait);
}
void arriveAtUnrendered(SweepStage& s) {
  s.answers[u"POST /campaigns/c1/preview"_s] = "{}";
  arriveAtSequence(s);
  page(s).proof()->setWatched(true);
  s.finish();
}
void arriveAtTestEmail(SweepStage& s) {
  arriveAtSequence(s);
  page(s).sequence()->testEmail()->show();
  page(s).sequence()->testEmail()->setTo(u"me@a.example"_s);
}

}  // namespace

QList<SweepRow> campaignPageRows() {
  const auto ready = campaign(u"draft"_s, {{u"qc"_s, checked(true)}});
  const auto unchecked = campaign(u"draft"_s, {{u"qc"_s, QJsonValue()}});
  auto check = act(u"launch, the check before it"_s, &CampaignStore::launch, unchecked, u"POST /campaigns/c1/qc"_s,
                   written(checked(true)));
  check.required = {u"checkedAt"_s, u"passed"_s, u"current"_s, u"checks"_s};
  check.arrive = [unchecked](SweepStage& s) {
    s.answers[u"POST /campaigns/c1/launch"_s] = after(u"running"_s);
    arriveAt(unchecked)(s);
  };
  return {
      act(u"launch"_s, &CampaignStore::launch, ready, u"POST /campaigns/c1/launch"_s, after(u"running"_s)),
      check,
      act(u"launch, when paused"_s, &CampaignStore::launch, campaign(u"paused"_s), u"POST /campaigns/c1/launch"_s,
          after(u"running"_s)),
      act(u"pause"_s, &CampaignStore::pause, campaign(u"running"_s), u"POST /campaigns/c1/pause"_s, after(u"paused"_s)),
      act(u"duplicate"_s, &CampaignStore::duplicate, campaign(u"running"_s), u"POST /campaigns/c1/duplicate"_s,
          sample(u"Campaign"_s, {{u"id"_s, u"c9"_s}})),
      act(u"remove"_s, &CampaignStore::remove, campaign(u"running"_s), u"DELETE /campaigns/c1"_s, {}),
      act(u"restore"_s, &CampaignStore::restore, campaign(u"archived"_s), u"POST /campaigns/c1/restore"_s,
          after(u"paused"_s)),
      {u"CampaignStore::beginRename"_s, arriveAtRename, [](SweepStage& s) { page(s).renameForm()->submit(); },
       u"PATCH /campaigns/c1"_s, after(u"running"_s, {{u"name"_s, u"Fair"_s}}), required, busy, shown,
       [](SweepStage& s) { return page(s).renameForm()->error(); }},
      {u"CampaignStore::refreshShown"_s, arriveAtSequence, [](SweepStage& s) { page(s).refreshShown(); },
       u"GET /campaigns/c1"_s, campaign(u"paused"_s), required,
       [](SweepStage& s) { return page(s).campaign()->refreshing(); }, shown,
       [](SweepStage& s) { return failureOf(*page(s).campaign()); }, true},

      {u"CampaignSettings::save"_s, arriveAtSettings, [](SweepStage& s) { page(s).settings()->save(); },
       u"PATCH /campaigns/c1"_s, after(u"paused"_s, {{u"name"_s, u"Fair"_s}}), required,
       [](SweepStage& s) { return page(s).settings()->saving(); },
       [](SweepStage& s) { return page(s).settings()->draft()->values().value(u"name"_s); }},
      {u"CampaignSettings::saveAll"_s, arriveAtSettings, [](SweepStage& s) { page(s).settings()->saveAll(); },
       u"PATCH /campaigns/c1"_s, after(u"paused"_s, {{u"name"_s, u"Fair"_s}}), required,
       [](SweepStage& s) { return page(s).settings()->saving(); },
       [](SweepStage& s) { return page(s).settings()->draft()->values().value(u"name"_s); }},
      {u"ScheduleForm::save"_s, arriveAtSchedule, [](SweepStage& s) { page(s).settings()->schedule()->save(); },
       u"PATCH /campaigns/c1"_s, after(u"paused"_s, {{u"schedule"_s, mornings()}}), required,
       [](SweepStage& s) { return page(s).settings()->schedule()->saving(); },
       [](SweepStage& s) { return page(s).settings()->schedule()->windows().value(0).toMap().value(u"name"_s); }},
      {u"CampaignSettings::retryTags"_s,
       arriveWithoutTags,
       [](SweepStage& s) { page(s).settings()->retryTags(); },
       u"GET /tags"_s,
       sample(u"TagList"_s),
       {u"items"_s},
       {},
       [](SweepStage& s) { return page(s).settings()->draft()->values(); },
       [](SweepStage& s) { return failureOf(*page(s).settings()->knownTags()); },
       true},

      {u"Subsequences::create"_s, arriveAtNewSubsequence, [](SweepStage& s) { page(s).subsequences()->create(); },
       u"POST /campaigns/c1/subsequences"_s, sample(u"Campaign"_s, {{u"id"_s, u"c9"_s}}), required,
       [](SweepStage& s) { return page(s).subsequences()->form()->busy(); },
       [](SweepStage& s) { return page(s).subsequences()->draft()->values(); },
       [](SweepStage& s) { return page(s).subsequences()->form()->error(); }},
      {u"Subsequences::retryLabels"_s,
       arriveWithoutLabels,
       [](SweepStage& s) { page(s).subsequences()->retryLabels(); },
       u"GET /reply-labels"_s,
       sample(u"ReplyLabelList"_s),
       {u"items"_s},
       {},
       [](SweepStage& s) { return page(s).subsequences()->draft()->values(); },
       [](SweepStage& s) { return failureOf(*page(s).subsequences()->knownLabels()); },
       true},

      {u"SequenceAutosave::save"_s, arriveAtWritten, [](SweepStage& s) { page(s).sequence()->autosave()->save(); },
       u"PUT /campaigns/c1/steps"_s, after(u"paused"_s, {{u"steps"_s, savedSteps()}}), required,
       [](SweepStage& s) { return page(s).sequence()->autosave()->saveStateName() == "saving"_L1; },
       [](SweepStage& s) { return page(s).sequence()->subject(); },
       [](SweepStage& s) { return page(s).sequence()->autosave()->message(); }},
      {u"SequencePreview::retry"_s,
       arriveWithoutPreview,
       [](SweepStage& s) { page(s).sequence()->preview()->retry(); },
       u"POST /campaigns/c1/preview"_s,
       sample(u"PreviewResponse"_s),
       {u"steps"_s},
       {},
       [](SweepStage& s) { return page(s).sequence()->subject(); },
       [](SweepStage& s) { return page(s).sequence()->preview()->message(); },
       true},
      {u"SequencePreview::lead"_s,
       arriveAtSequence,
       [](SweepStage& s) {
         auto& preview = *page(s).sequence()->preview();
         preview.setLead(preview.lead() == "l1"_L1 ? u"l2"_s : u"l1"_s);
       },
       u"POST /campaigns/c1/preview"_s,
       sample(u"PreviewResponse"_s),
       {u"steps"_s},
       {},
       [](SweepStage& s) { return page(s).sequence()->subject(); },
       [](SweepStage& s) { return page(s).sequence()->preview()->message(); },
       true},
      {u"ProofWall::retry"_s,
       arriveAtUnrendered,
       [](SweepStage& s) { page(s).proof()->retry(); },
       u"POST /campaigns/c1/preview"_s,
       sample(u"PreviewResponse"_s),
       {u"steps"_s},
       {},
       [](SweepStage& s) { return page(s).sequence()->subject(); },
       // A lead that is refused says so in its own place, and the others are rendered all the same.
       [](SweepStage& s) {
         QString told = page(s).proof()->message();
         for (const ProofEmail& email : page(s).proof()->emails()->records()) told += email.findings.join(u' ');
         return told;
       },
       true},
      {u"SequenceEditor::spin"_s,
       arriveAtSequence,
       [](SweepStage& s) { page(s).sequence()->spin(u"subject"_s); },
       u"POST /campaigns/spintax"_s,
       sample(u"SpintaxOut"_s),
       {u"text"_s},
       [](SweepStage& s) { return !page(s).sequence()->spinning().isEmpty(); },
       [](SweepStage& s) { return page(s).sequence()->subject(); }},
      {u"TestEmailForm::submit"_s,
       arriveAtTestEmail,
       [](SweepStage& s) { page(s).sequence()->testEmail()->submit(); },
       u"POST /campaigns/c1/test-email"_s,
       sample(u"TestEmail"_s, {{u"state"_s, u"sent"_s}, {u"error"_s, QJsonValue()}}),
       {u"id"_s, u"state"_s},
       [](SweepStage& s) { return page(s).sequence()->testEmail()->waiting(); },
       [](SweepStage& s) { return page(s).sequence()->testEmail()->to(); },
       [](SweepStage& s) { return page(s).sequence()->testEmail()->error(); },
       false,
       true},
  };
}

}  // namespace orv::test
