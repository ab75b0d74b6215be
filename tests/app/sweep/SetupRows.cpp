#include <QJsonArray>
#include <QJsonDocument>

#include "app/setup/SetupProjectStore.h"
#include "tests/app/sweep/SweepStage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::test {
namespace {

const auto list = u"GET /inbox-setup/templates"_s, one = u"GET /inbox-setup/templates/sp1"_s,
           latest = u"GET /inbox-setup/runs/latest"_s;

QJsonObject objectOf(const QByteArray& json) { return QJsonDocument::fromJson(json).object(); }

QByteArray project(const QJsonObject& changed = {}) {
  QJsonObject whole = objectOf(sample(u"SetupProject"_s, changed));
  if (!changed.contains("archivedAt"_L1)) whole.remove(u"archivedAt"_s);
  if (!changed.contains("lastRun"_L1)) whole.remove(u"lastRun"_s);
  return written(whole);
}

QByteArray pageOf(const QByteArray& item) {
  return written({{u"items"_s, QJsonArray{objectOf(item)}}, {u"archivedCount"_s, 1}});
}

QByteArray run(const QString& state, const QString& control = u"run"_s) {
  QJsonObject row = objectOf(sample(u"SetupRun"_s)).value("rows"_L1).toArray().first().toObject();
  row.insert(u"state"_s, state);
  return sample(u"SetupRun"_s, {{u"rows"_s, QJsonArray{row}}, {u"control"_s, control}});
}

/// A project's page, and the list that its actions go through.
struct ProjectOnShow final : Store {
  explicit ProjectOnShow(WorkspaceContext& context) : Store(context) {}
  void refresh() override {
    list.refresh();
    page.refresh();
  }
  void close() override {
    page.close();
    list.close();
    Store::close();
  }
  InboxSetupStore list{context()};
  SetupProjectStore page{u"sp1"_s, list};
};

InboxSetupStore& projects(SweepStage& s) { return s.the<ProjectOnShow>().list; }
SetupProjectStore& page(SweepStage& s) { return s.the<ProjectOnShow>().page; }

std::function<void(SweepStage&)> at(const QByteArray& project, const QByteArray& lastRun = "null") {
  return [=](SweepStage& s) {
    s.answers[list] = pageOf(project);
    s.answers[one] = project;
    s.answers[latest] = lastRun;
    s.answers[one + u"/photo"_s] = "\x89PNG\r\n\x1a\n";
    s.show<ProjectOnShow>();
    page(s).appear();
    page(s).ensureLoaded();
    s.finish();
  };
}

QVariant names(SweepStage& s) {
  QStringList names;
  for (const SetupProjectRow& row : projects(s).rows()->records()) names.append(row.name);
  return QVariantList{names, projects(s).archivedCount(), projects(s).newProject()->shown(),
                      projects(s).rename()->shown()};
}

QVariant runShown(SweepStage& s) { return page(s).runText(); }

QVariant formShown(SweepStage& s) {
  return QVariantList{page(s).form()->draft()->saved(), page(s).form()->password()->isDirty()};
}

QVariant domainsShown(SweepStage& s) {
  QStringList all;
  for (const auto* rows : {page(s).domains()->rows(), page(s).domains()->archivedRows()})
    for (const DomainRow& row : rows->records()) all.append(row.domain + row.detail);
  return all;
}

bool isListBusy(SweepStage& s) { return !projects(s).busyIds().isEmpty(); }
bool isBusy(SweepStage& s) { return page(s).busy(); }

SweepRow removal() {
  return {u"InboxSetupStore, delete"_s,
          at(project()),
          [](SweepStage& s) { projects(s).remove(u"sp1"_s); },
          u"DELETE /inbox-setup/templates/sp1"_s,
          {},
          {},
          isListBusy,
          names};
}

SweepRow restoring() {
  return {u"InboxSetupStore, restore"_s,
          at(project({{u"archivedAt"_s, u"2026-11-22T09:00:00Z"_s}})),
          [](SweepStage& s) { projects(s).restore(u"sp1"_s); },
          u"POST /inbox-setup/templates/sp1/restore"_s,
          project(),
          {u"id"_s},
          isListBusy,
          names};
}

SweepRow credentials() {
  return {u"InboxSetupStore, credentials"_s,
          at(project()),
          [](SweepStage& s) { projects(s).exportCredentials(u"sp1"_s, u"Spring"_s); },
          u"GET /inbox-setup/templates/sp1/credentials.csv"_s,
          {},
          {},
          isListBusy,
          {}};
}

SweepRow archive() {
  return {u"InboxSetupStore::showArchived"_s,
          at(project()),
          [](SweepStage& s) {
            projects(s).setShowArchived(false);
            projects(s).setShowArchived(true);
          },
          list,
          pageOf(project({{u"archivedAt"_s, u"2026-11-22T09:00:00Z"_s}})),
          {u"items"_s},
          {},
          [](SweepStage& s) { return QVariant(projects(s).archivedRows()->rowCount()); },
          [](SweepStage& s) { return failureOf(*projects(s).archived()); },
          true};
}

SweepRow creation() {
  return {u"NewProject::goOn"_s,
          [](SweepStage& s) {
            at(project())(s);
            projects(s).beginCreate();
            projects(s).newProject()->setMode(u"new"_s);
            projects(s).newProject()->goOn();
            projects(s).newProject()->setName(u"Harbour"_s);
          },
          [](SweepStage& s) { projects(s).newProject()->goOn(); },
          u"POST /inbox-setup/templates"_s,
          project({{u"id"_s, u"sp9"_s}, {u"name"_s, u"Harbour"_s}}),
          {u"id"_s},
          [](SweepStage& s) { return projects(s).newProject()->busy(); },
          names,
          [](SweepStage& s) { return projects(s).newProject()->error(); }};
}

SweepRow renaming() {
  return {u"InboxSetupStore, rename"_s,
          [](SweepStage& s) {
            at(project())(s);
            projects(s).act(u"rename"_s, u"sp1"_s);
            projects(s).rename()->setText(u"Harbour"_s);
          },
          [](SweepStage& s) { projects(s).rename()->submit(); },
          u"PATCH /inbox-setup/templates/sp1"_s,
          project({{u"name"_s, u"Harbour"_s}, {u"version"_s, 5}}),
          {u"id"_s},
          [](SweepStage& s) { return projects(s).rename()->busy(); },
          names,
          [](SweepStage& s) { return projects(s).rename()->error(); }};
}

SweepRow onRun(const QString& name, const QString& request, const QByteArray& before, const QByteArray& after,
               std::function<void(SweepStage&)> press) {
  return {name, at(project(), before), std::move(press), request, after, {u"id"_s}, isBusy, runShown};
}

std::function<void(SweepStage&)> acting(const QString& key) {
  return [key](SweepStage& s) { page(s).act(key); };
}

QList<SweepRow> runRows() {
  const auto sr1 = u"POST /inbox-setup/runs/sr1/"_s;
  const auto working = run(u"gmail"_s), paused = run(u"gmail"_s, u"paused"_s), failed = run(u"error"_s);
  return {onRun(u"SetupProjectStore, run"_s, u"POST /inbox-setup/runs"_s, "null", working, acting(u"run"_s)),
          onRun(u"SetupProjectStore, pause"_s, sr1 + u"pause"_s, working, paused, acting(u"pause"_s)),
          onRun(u"SetupProjectStore, resume"_s, sr1 + u"resume"_s, paused, working, acting(u"resume"_s)),
          onRun(u"SetupProjectStore, terminate"_s, sr1 + u"terminate"_s, working, run(u"stopped"_s, u"terminated"_s),
                acting(u"terminate"_s)),
          onRun(u"SetupProjectStore, again"_s, sr1 + u"retry"_s, failed, working, acting(u"again"_s)),
          onRun(u"SetupProjectStore::retryDomain"_s, sr1 + u"retry"_s, failed, working,
                [](SweepStage& s) { page(s).retryDomain(u"a.example"_s); })};
}

QList<SweepRow> formRows() {
  SweepRow save{u"SetupForm::save"_s,
                [](SweepStage& s) {
                  at(project())(s);
                  page(s).form()->set(u"signature"_s, u"Ahoy"_s);
                  page(s).form()->password()->replace();
                  page(s).form()->password()->setText(u"fair winds"_s);
                },
                [](SweepStage& s) { page(s).form()->save(); },
                u"PATCH /inbox-setup/templates/sp1"_s,
                project({{u"signature"_s, u"Ahoy"_s}, {u"version"_s, 5}}),
                {u"id"_s},
                [](SweepStage& s) { return page(s).form()->saving(); },
                formShown,
                [](SweepStage& s) { return page(s).form()->problem(); }};
  SweepRow restore{u"SetupDomains::restore"_s,
                   at(project()),
                   [](SweepStage& s) { page(s).domains()->restore(u"c.example"_s); },
                   u"POST /inbox-setup/templates/sp1/archived-domains/restore"_s,
                   project({{u"domains"_s, QJsonArray{u"a.example"_s, u"b.example"_s, u"c.example"_s}},
                            {u"archivedDomains"_s, QJsonArray()},
                            {u"version"_s, 5}}),
                   {u"id"_s},
                   [](SweepStage& s) { return !page(s).domains()->busyDomains().isEmpty(); },
                   domainsShown};
  SweepRow lookUp{u"SetupDomains::lookUp"_s,
                  at(project()),
                  [](SweepStage& s) { page(s).domains()->lookUp(); },
                  u"POST /inbox-setup/registrar-lookup"_s,
                  sample(u"RegistrarLookup"_s),
                  {u"holders"_s},
                  [](SweepStage& s) { return page(s).domains()->lookingUp(); },
                  domainsShown};
  SweepRow photo{u"SetupPhoto::remove"_s,
                 at(project({{u"hasPhoto"_s, true}})),
                 [](SweepStage& s) { page(s).photo()->remove(); },
                 u"DELETE /inbox-setup/templates/sp1/photo"_s,
                 {},
                 {},
                 [](SweepStage& s) { return page(s).photo()->busy(); },
                 {}};
  return {save, restore, lookUp, photo};
}

}  // namespace

QList<SweepRow> setupRows() {
  return QList<SweepRow>{removal(), restoring(), credentials(), archive(), creation(), renaming()} + runRows() +
         formRows();
}

}  // namespace orv::test
