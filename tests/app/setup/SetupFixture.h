#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

#include "app/setup/SetupProjectStore.h"
#include "kit/api/JSONCoding.h"
#include "tests/support/AppFixture.h"

namespace orv::test {

inline SetupProject someProject(const QString& id = QStringLiteral("sp1")) {
  SetupProject project;
  project.id = id;
  project.number = 1;
  project.name = QStringLiteral("Spring domains");
  project.mode = SetupMode::fresh();
  project.admin = QStringLiteral("ellen");
  project.firstName = QStringLiteral("Ellen");
  project.lastName = QStringLiteral("Marsh");
  project.domains = {QStringLiteral("a.example"), QStringLiteral("b.example")};
  project.hasPassword = true;
  project.version = 4;
  project.updatedAt = QStringLiteral("2026-11-21T09:00:00Z");
  return project;
}

/// A run of the project with an inbox in each of the states.
inline SetupRun someRun(const QStringList& states, const QString& control = QStringLiteral("run")) {
  SetupRun run;
  run.id = QStringLiteral("sr1");
  run.mode = SetupMode::fresh();
  run.templateId = QStringLiteral("sp1");
  run.createdAt = QStringLiteral("2026-11-21T09:31:00Z");
  run.control = RunControl(control);
  for (const QString& state : states) {
    const qsizetype place = run.rows.size();
    const QString domain = QStringLiteral("d%1.example").arg(place / 3);
    if (place % 3 == 0) run.domains.append({domain, QStringLiteral("ellen@") + domain, {}});
    SetupRow row;
    row.id = QStringLiteral("r%1").arg(place);
    row.domain = domain;
    row.role = InboxRole(QStringLiteral("admin"));
    row.address = QStringLiteral("ellen@") + domain;
    row.state = RowState(state);
    row.updatedAt = run.createdAt;
    run.rows.append(row);
  }
  return run;
}

struct SetupFixture : AppFixture {
  const QString list = QStringLiteral("GET /inbox-setup/templates");
  const QString one = QStringLiteral("GET /inbox-setup/templates/sp1");
  const QString patch = QStringLiteral("PATCH /inbox-setup/templates/sp1");
  const QString latest = QStringLiteral("GET /inbox-setup/runs/latest");
  const QString poll = QStringLiteral("GET /inbox-setup/runs/sr1");

  InboxSetupStore store{*context};

  QByteArray page(const QList<SetupProject>& items) { return encodeJSON(SetupProjectPage{items, 0}); }
  void load(const QList<SetupProject>& items) {
    api.expect(list);
    store.ensureLoaded();
    api.answer(list, page(items));
  }
  /// Opens the project's page. It has no run unless one is given.
  std::unique_ptr<SetupProjectStore> open(const SetupProject& project, const std::optional<SetupRun>& run = {}) {
    load({project});
    auto opened = std::make_unique<SetupProjectStore>(project.id, store);
    api.expect(one);
    api.expect(latest);
    opened->ensureLoaded();
    api.answer(one, encodeJSON(project));
    if (run)
      api.answer(latest, encodeJSON(*run));
    else
      api.answer(latest, {}, 204);
    return opened;
  }
  void pass(std::chrono::milliseconds time) {
    clock.advance(time);
    settle();
  }
  QJsonObject sentBody() const {
    return QJsonDocument::fromJson(api.last().request.body.value_or(QByteArray())).object();
  }
  QString lastToast() { return toasts.toasts().isEmpty() ? QString() : toasts.toasts().last().message; }
};

}  // namespace orv::test
