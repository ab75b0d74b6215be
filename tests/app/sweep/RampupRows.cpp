#include <QJsonArray>
#include <QJsonDocument>

#include "app/deliverability/DeliverabilityStore.h"
#include "app/rampup/RampupAccountStore.h"
#include "tests/app/sweep/SweepStage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::test {
namespace {

const auto account = u"GET /rampup/mb1"_s, stats = u"GET /rampup/mb1/stats"_s, templates = u"GET /rampup/templates"_s;

QJsonObject objectOf(const QByteArray& json) { return QJsonDocument::fromJson(json).object(); }

/// The account of the examples, as a sender that is on day 9 of its roadmap.
QByteArray detail() {
  const QJsonObject whole = objectOf(sample(u"RampupDetail"_s));
  QJsonObject plan = whole.value("plan"_L1).toObject();
  plan.insert(u"state"_s, u"running"_s);
  return sample(u"RampupDetail"_s, {{u"role"_s, u"sender"_s}, {u"plan"_s, plan}});
}

QByteArray live() {
  QJsonObject live = objectOf(sample(u"RoadmapTemplate"_s));
  live.remove(u"archivedAt"_s);
  return written(live);
}

/// One account with its list.
struct RampupOnShow final : Store {
  explicit RampupOnShow(WorkspaceContext& context) : Store(context) {}
  void ensureLoaded() override { list.ensureLoaded(); }
  void refresh() override {
    list.refresh();
    page.refresh();
  }
  void close() override {
    page.close();
    list.close();
    Store::close();
  }
  RampupStore list{context()};
  RampupAccountStore page{QStringLiteral("mb1"), list};
};

RampupStore& list(SweepStage& s) { return s.the<RampupOnShow>().list; }
RampupAccountStore& page(SweepStage& s) { return s.the<RampupOnShow>().page; }

void arrive(SweepStage& s) {
  QJsonObject item = objectOf(detail());
  item.remove(u"days"_s);
  s.answers[u"GET /rampup"_s] = written({{u"items"_s, QJsonArray{item}}});
  s.answers[account] = detail();
  s.answers[stats] = sample(u"WarmupStats"_s);
  s.answers[templates] = written({{u"items"_s, QJsonArray{objectOf(live())}}, {u"archivedCount"_s, 0}});
  s.show<RampupOnShow>();
  list(s).list()->appear();
  list(s).ensureLoaded();
  page(s).ensureLoaded();
  s.finish();
  list(s).bulk()->selection()->toggleAll();
}

QVariant shown(SweepStage& s) { return list(s).list()->shownIds(); }
QVariant stateLine(SweepStage& s) { return page(s).stateLine(); }
bool isBusy(SweepStage& s) { return page(s).busy(); }

SweepRow bulk(const QString& operation, void (RampupBulk::*press)()) {
  return {operation,
          arrive,
          [press](SweepStage& s) { (list(s).bulk()->*press)(); },
          u"POST /rampup/bulk"_s,
          sample(u"RampupBulkResult"_s, {{u"failed"_s, QJsonArray()}}),
          {u"ok"_s, u"failed"_s},
          [](SweepStage& s) { return !list(s).bulk()->busy().isEmpty(); },
          shown};
}

SweepRow warmupOfMany() {
  return {u"RampupBulk::switchWarmup"_s,
          arrive,
          [](SweepStage& s) { list(s).bulk()->switchWarmup(false); },
          u"PATCH /rampup/mb1/settings"_s,
          detail(),
          {u"mailboxId"_s, u"settings"_s},
          [](SweepStage& s) { return !list(s).bulk()->busy().isEmpty(); },
          // What failed stays ticked.
          [](SweepStage& s) { return QVariant(list(s).bulk()->selection()->ids()); },
          {},
          false,
          true};
}

SweepRow onAccount(const QString& name, const QString& request, std::function<void(SweepStage&)> press) {
  return {name, arrive, std::move(press), request, detail(), {u"mailboxId"_s, u"settings"_s}, isBusy, stateLine};
}

QList<SweepRow> onAccountRows() {
  SweepRow extend =
      onAccount(u"RampupAccountStore::extend"_s, u"POST /rampup/mb1/extend"_s, [](SweepStage& s) { page(s).extend(); });
  extend.arrive = [](SweepStage& s) {
    arrive(s);
    page(s).act(u"extend"_s);
  };
  extend.error = [](SweepStage& s) { return page(s).extending()->error(); };
  SweepRow restart = onAccount(u"RampupAccountStore::restart"_s, u"POST /rampup/mb1/restart"_s,
                               [](SweepStage& s) { page(s).restart(); });
  restart.arrive = [](SweepStage& s) {
    arrive(s);
    page(s).act(u"restart"_s);
  };
  restart.error = [](SweepStage& s) { return page(s).restarting()->error(); };
  SweepRow roadmap =
      onAccount(u"RoadmapEditor::submit"_s, u"PATCH /rampup/mb1"_s, [](SweepStage& s) { page(s).editor()->submit(); });
  roadmap.arrive = [](SweepStage& s) {
    arrive(s);
    page(s).act(u"edit"_s);
  };
  roadmap.error = [](SweepStage& s) { return page(s).editor()->error(); };
  SweepRow warmup = onAccount(u"WarmupForm::save"_s, u"PATCH /rampup/mb1/settings"_s,
                              [](SweepStage& s) { page(s).warmup()->save(); });
  warmup.arrive = [](SweepStage& s) {
    arrive(s);
    page(s).warmup()->edit();
    page(s).warmup()->draft()->set(u"replyRate"_s, u"41"_s);
  };
  QJsonObject saved = objectOf(detail()), settings = saved.value("settings"_L1).toObject();
  settings.insert(u"replyRate"_s, 41);
  saved.insert(u"settings"_s, settings);
  warmup.answer = written(saved);
  return {onAccount(u"RampupAccountStore, pause"_s, u"POST /rampup/mb1/pause"_s,
                    [](SweepStage& s) { page(s).act(u"pause"_s); }),
          extend, restart, roadmap, warmup};
}

/// With one in the archive.
SweepRow inArchive(const QString& name, const QString& action, const QString& request, QByteArray answer) {
  return {name,
          [](SweepStage& s) {
            arrive(s);
            const QJsonObject kept = objectOf(
                sample(u"RoadmapTemplate"_s, {{u"id"_s, u"t9"_s}, {u"archivedAt"_s, u"2026-11-20T08:00:00Z"_s}}));
            s.answers[templates] = written({{u"items"_s, QJsonArray{kept}}, {u"archivedCount"_s, 1}});
            list(s).setShowTemplates(true);
            list(s).templates()->setShowArchived(true);
          },
          [action](SweepStage& s) { list(s).templates()->act(action, u"t9"_s); },
          request,
          answer.replace(R"("t1")", R"("t9")"),
          answer.isEmpty() ? QStringList() : QStringList{u"id"_s, u"stages"_s},
          [](SweepStage& s) { return !list(s).templates()->busyIds().isEmpty(); },
          [](SweepStage& s) { return QVariant(list(s).templates()->archivedRows()->rowCount()); }};
}

QList<SweepRow> templateRows() {
  const auto names = [](SweepStage& s) { return QVariant(list(s).templates()->rows()->rowCount()); };
  const auto busy = [](SweepStage& s) { return !list(s).templates()->busyIds().isEmpty(); };
  const SweepRow archive{u"RoadmapTemplates, archive"_s,
                         arrive,
                         [](SweepStage& s) { list(s).templates()->act(u"archive"_s, u"t1"_s); },
                         u"DELETE /rampup/templates/t1"_s,
                         {},
                         {},
                         busy,
                         names};
  const SweepRow archived{u"RoadmapTemplates::showArchived"_s,
                          [](SweepStage& s) {
                            arrive(s);
                            list(s).templates()->archived()->appear();
                          },
                          [](SweepStage& s) {
                            list(s).templates()->setShowArchived(false);
                            list(s).templates()->setShowArchived(true);
                          },
                          templates,
                          sample(u"TemplatePage"_s),
                          {u"items"_s},
                          {},
                          names,
                          [](SweepStage& s) { return failureOf(*list(s).templates()->archived()); },
                          true};
  SweepRow rename{u"RoadmapTemplates, rename"_s,
                  [](SweepStage& s) {
                    arrive(s);
                    list(s).templates()->act(u"rename"_s, u"t1"_s);
                    list(s).templates()->rename()->setText(u"Calm start"_s);
                  },
                  [](SweepStage& s) { list(s).templates()->rename()->submit(); },
                  u"PUT /rampup/templates/t1"_s,
                  {},
                  {u"id"_s, u"stages"_s},
                  [](SweepStage& s) { return list(s).templates()->rename()->busy(); },
                  [](SweepStage& s) { return QVariant(list(s).templates()->rows()->records().front().name); },
                  [](SweepStage& s) { return list(s).templates()->rename()->error(); }};
  QJsonObject renamed = objectOf(live());
  renamed.insert(u"name"_s, u"Calm start"_s);
  rename.answer = written(renamed);
  return {archive, archived, rename,
          inArchive(u"RoadmapTemplates, restore"_s, u"restore"_s, u"POST /rampup/templates/t9/restore"_s, live()),
          inArchive(u"RoadmapTemplates, delete for good"_s, u"delete"_s, u"DELETE /rampup/templates/t9"_s, {})};
}

SweepRow ofMany() {
  return {u"RoadmapEditor::submit, of many"_s,
          [](SweepStage& s) {
            arrive(s);
            list(s).bulk()->edit();
          },
          [](SweepStage& s) { list(s).editor()->submit(); },
          u"POST /rampup/bulk"_s,
          sample(u"RampupBulkResult"_s, {{u"failed"_s, QJsonArray()}}),
          {u"ok"_s, u"failed"_s},
          [](SweepStage& s) { return list(s).editor()->busy(); },
          shown,
          [](SweepStage& s) { return list(s).editor()->error(); }};
}

/// With the dialog of another template open, and the account ticked in it.
SweepRow onTemplate() {
  return {u"AddToTemplate::submit"_s,
          [](SweepStage& s) {
            arrive(s);
            RoadmapTemplate other;
            other.id = u"t2"_s;
            list(s).adding()->open(other);
            list(s).adding()->toggle(u"mb1"_s);
          },
          [](SweepStage& s) { list(s).adding()->submit(); },
          u"POST /rampup/bulk"_s,
          sample(u"RampupBulkResult"_s, {{u"failed"_s, QJsonArray()}}),
          {u"ok"_s, u"failed"_s},
          [](SweepStage& s) { return list(s).adding()->form()->busy(); },
          shown,
          [](SweepStage& s) { return list(s).adding()->form()->error(); }};
}

SweepRow newTemplate() {
  return {
      u"RoadmapTemplates, new"_s,
      [](SweepStage& s) {
        arrive(s);
        list(s).templates()->beginCreate();
        list(s).templates()->newTemplate()->setText(u"Calm start"_s);
      },
      [](SweepStage& s) { list(s).templates()->newTemplate()->submit(); },
      u"POST /rampup/templates"_s,
      sample(u"RoadmapTemplate"_s, {{u"id"_s, u"t2"_s}, {u"name"_s, u"Calm start"_s}, {u"archivedAt"_s, QJsonValue()}}),
      {u"id"_s, u"stages"_s},
      [](SweepStage& s) { return list(s).templates()->newTemplate()->busy(); },
      [](SweepStage& s) { return QVariant(list(s).templates()->rows()->rowCount()); },
      [](SweepStage& s) { return list(s).templates()->newTemplate()->error(); }};
}

QList<SweepRow> deliverabilityRows() {
  const SweepRow open{u"DeliverabilityStore::open"_s,
                      [](SweepStage& s) {
                        s.answers[u"GET /deliverability"_s] = sample(u"DeliverabilityReport"_s);
                        auto& store = s.show<DeliverabilityStore>();
                        store.report()->appear();
                        store.ensureLoaded();
                      },
                      [](SweepStage& s) {
                        s.the<DeliverabilityStore>().closeInbox();
                        s.the<DeliverabilityStore>().open(u"mb1"_s);
                      },
                      u"GET /deliverability/inboxes/mb1"_s,
                      sample(u"DeliverabilityInboxDetail"_s),
                      {u"inbox"_s, u"trend"_s, u"decisions"_s},
                      {},
                      [](SweepStage& s) { return QVariant(s.the<DeliverabilityStore>().rows()->rowCount()); },
                      [](SweepStage& s) { return failureOf(*s.the<DeliverabilityStore>().inbox()->detail()); },
                      true};
  return {open};
}

}  // namespace

QList<SweepRow> rampupRows() {
  return QList{bulk(u"RampupBulk::pause"_s, &RampupBulk::pause), bulk(u"RampupBulk::resume"_s, &RampupBulk::resume),
               bulk(u"RampupBulk::extend"_s, &RampupBulk::extend)} +
         onAccountRows() + templateRows() + QList{ofMany(), warmupOfMany(), onTemplate(), newTemplate()} +
         deliverabilityRows();
}

}  // namespace orv::test
