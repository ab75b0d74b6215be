#include <QJsonArray>
#include <QJsonDocument>

#include "app/inbox/AgentSettingsStore.h"
#include "app/inbox/DraftsStore.h"
#include "tests/app/sweep/SweepStage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::test {
namespace {

const auto training = u"GET /inbox/drafts/d1/training"_s;

QJsonObject objectOf(const QByteArray& json) { return QJsonDocument::fromJson(json).object(); }

QJsonObject draft(const QString& status = u"pending"_s) {
  return objectOf(sample(u"Draft"_s, {{u"id"_s, u"d1"_s},
                                      {u"threadId"_s, u"t1"_s},
                                      {u"status"_s, status},
                                      {u"approvedAt"_s, QJsonValue()},
                                      {u"dueAt"_s, QJsonValue()}}));
}

QByteArray drafts(const QString& status = u"pending"_s) {
  const QJsonObject item{{u"draft"_s, draft(status)}, {u"thread"_s, objectOf(sample(u"InboxThread"_s))}};
  return written({{u"items"_s, QJsonArray{item}}});
}

/// The review with what is written in it.
struct ReviewOnShow final : Store {
  explicit ReviewOnShow(WorkspaceContext& context) : Store(context) {}
  void refresh() override { review.refresh(); }
  void close() override {
    review.close();
    writings.close();
    Store::close();
  }
  Writings writings{context()};
  DraftsStore review{context(), writings};
};

DraftsStore& review(SweepStage& s) { return s.the<ReviewOnShow>().review; }
AgentSettingsStore& agent(SweepStage& s) { return s.the<AgentSettingsStore>(); }

void arrive(SweepStage& s) {
  s.answers[u"GET /inbox/drafts"_s] = drafts();
  s.answers[u"GET /inbox/threads/t1"_s] = sample(
      u"ThreadDetail"_s, {{u"thread"_s, objectOf(sample(u"InboxThread"_s))}, {u"drafts"_s, QJsonArray{draft()}}});
  s.answers[training] = R"({"done":true})";
  s.show<ReviewOnShow>();
  review(s).appear();
  review(s).queue()->list()->appear();
  review(s).ensureLoaded();
  s.finish();
}

void arriveInHistory(SweepStage& s) {
  arrive(s);
  review(s).setHistoryShown(true);
  review(s).history()->setTab(u"skipped"_s);
  s.finish();
}

void arriveAtAgent(SweepStage& s) {
  s.answers[u"GET /setter/settings"_s] =
      sample(u"SetterSettings"_s, {{u"followupMax"_s, 2}, {u"defaultMode"_s, u"draft"_s}, {u"version"_s, 3}});
  s.answers[u"GET /setter/campaigns"_s] = R"({"items":[{"campaignId":"c1"}]})";
  s.answers[u"GET /setter/training"_s] = sample(u"SetterTraining"_s);
  s.answers[u"GET /setter/lessons"_s] = sample(u"SetterLessons"_s);
  s.show<AgentSettingsStore>();
  agent(s).appear();
  agent(s).ensureLoaded();
  s.finish();
}

QVariant shown(SweepStage& s) {
  return QStringList{review(s).queue()->picked(), review(s).style(),
                     review(s).history()->list()->shownIds().join(u' ')};
}

bool isBusy(SweepStage& s) { return !review(s).decisions()->busyIds().isEmpty() || review(s).styling(); }

QVariant agentShown(SweepStage& s) {
  AgentForm& form = *agent(s).form();
  return QVariantList{form.draft()->saved(), agent(s).mode()->mode(), agent(s).campaigns()->activeCount(),
                      agent(s).lessons()->rows()->rowCount()};
}

SweepRow decision(const QString& key, const QString& verb, const QString& status) {
  return {u"DraftsStore, "_s + key,
          arrive,
          [key](SweepStage& s) { review(s).act(key); },
          u"POST /inbox/drafts/d1/"_s + verb,
          written(draft(status)),
          {u"id"_s},
          isBusy,
          shown};
}

QList<SweepRow> reviewRows() {
  return {decision(u"approve"_s, u"approve"_s, u"approved"_s),
          decision(u"skip"_s, u"reject"_s, u"rejected"_s),
          {u"DraftsStore::chooseStyle"_s,
           arrive,
           [](SweepStage& s) { review(s).chooseStyle(u"casual"_s); },
           u"POST /inbox/drafts/d1/versions"_s,
           R"({"versions":[{"style":"casual","label":"Casual","body":"Hey"}]})",
           {u"versions"_s},
           isBusy,
           [](SweepStage& s) { return QVariant(review(s).queue()->picked()); }},
          {u"DraftHistory::putBack"_s,
           [](SweepStage& s) {
             arriveInHistory(s);
             s.answers[u"GET /inbox/threads/t1"_s] = sample(
                 u"ThreadDetail"_s,
                 {{u"thread"_s, objectOf(sample(u"InboxThread"_s))}, {u"drafts"_s, QJsonArray{draft(u"rejected"_s)}}});
           },
           [](SweepStage& s) { review(s).history()->putBack(u"d1"_s); },
           u"POST /inbox/drafts/d1/restore"_s,
           written(draft()),
           {u"id"_s},
           isBusy,
           // Where nobody knows whether it waits again the queue is read anew.
           [](SweepStage& s) { return QVariant(review(s).history()->list()->shownIds()); }}};
}

/// Of a draft that has just been decided.
SweepRow taking(const QString& name, const QString& key, const QString& verb, const QString& status,
                const QString& back) {
  return {name,
          [=](SweepStage& s) {
            arrive(s);
            s.answers[u"POST /inbox/drafts/d1/"_s + verb] = written(draft(status));
            s.answers[u"GET /inbox/threads/t1"_s] =
                sample(u"ThreadDetail"_s,
                       {{u"thread"_s, objectOf(sample(u"InboxThread"_s))}, {u"drafts"_s, QJsonArray{draft(status)}}});
            review(s).act(key);
          },
          [](SweepStage& s) { review(s).decisions()->undo(u"d1"_s); },
          u"POST /inbox/drafts/d1/"_s + back,
          written(draft()),
          {u"id"_s},
          isBusy,
          [](SweepStage& s) { return QVariant(review(s).decisions()->rows()->rowCount()); }};
}

/// Of a draft that has just been skipped.
SweepRow reason() {
  const auto reject = u"POST /inbox/drafts/d1/reject"_s;
  return {u"DraftReason::submit"_s,
          [reject](SweepStage& s) {
            arrive(s);
            s.answers[reject] = written(draft(u"rejected"_s));
            s.answers[u"GET /inbox/drafts"_s] = R"({"items":[]})";
            review(s).act(u"skip"_s);
            s.finish();
            review(s).reason()->ask(u"d1"_s);
            review(s).reason()->draft()->set(u"reason"_s, u"Too long"_s);
          },
          [](SweepStage& s) { review(s).reason()->submit(); },
          reject,
          written(draft(u"rejected"_s)),
          {u"id"_s},
          [](SweepStage& s) { return review(s).reason()->form()->busy(); },
          shown,
          [](SweepStage& s) { return review(s).reason()->form()->error(); }};
}

SweepRow onAgent(const QString& name, const QString& request, const QByteArray& answer, const QStringList& required,
                 std::function<void(SweepStage&)> press) {
  return {name, arriveAtAgent, std::move(press), request, answer, required, {}, agentShown};
}

QList<SweepRow> agentRows() {
  const QByteArray saved =
      sample(u"SetterSettings"_s,
             {{u"followupMax"_s, 2}, {u"defaultMode"_s, u"auto"_s}, {u"repName"_s, u"Nora"_s}, {u"version"_s, 4}});
  SweepRow save = onAgent(u"AgentForm::save"_s, u"PATCH /setter/settings"_s, saved, {u"version"_s}, [](SweepStage& s) {
    agent(s).form()->set(u"repName"_s, u"Nora"_s);
    agent(s).form()->save();
  });
  save.busy = [](SweepStage& s) { return agent(s).form()->saving(); };
  save.error = [](SweepStage& s) { return agent(s).form()->problem(); };
  SweepRow mode = onAgent(u"AgentMode::choose"_s, u"PATCH /setter/settings"_s, saved, {u"version"_s},
                          [](SweepStage& s) { agent(s).mode()->choose(u"auto"_s); });
  mode.busy = [](SweepStage& s) { return agent(s).mode()->flipping(); };
  return {save, mode, onAgent(u"AgentCampaigns::move"_s, u"PUT /setter/campaigns/c1/mode"_s, {}, {}, [](SweepStage& s) {
            agent(s).campaigns()->move(u"c1"_s);
          })};
}

}  // namespace

QList<SweepRow> inboxReviewRows() {
  return reviewRows() +
         QList{taking(u"DraftDecisions::undo"_s, u"skip"_s, u"reject"_s, u"rejected"_s, u"restore"_s),
               taking(u"DraftDecisions::undo, of an approval"_s, u"approve"_s, u"approve"_s, u"approved"_s,
                      u"undo-approve"_s),
               reason()} +
         agentRows();
}

}  // namespace orv::test
