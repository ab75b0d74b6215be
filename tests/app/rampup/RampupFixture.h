#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include "app/rampup/RampupAccountStore.h"
#include "kit/api/JSONCoding.h"
#include "tests/support/AppFixture.h"
#include "tests/support/cell.h"

namespace orv::test {

inline QList<RoadmapStage> someStages() {
  const auto text = [](const char* word) { return QString::fromLatin1(word); };
  return {{text("warmup"), text("Warm-up only"), 14, {5, 18}, {0, 0}},
          {text("slow_ramp"), text("Slow ramp"), 21, {18, 24}, {2, 20}},
          {text("full"), text("Full volume"), 7, {20, 15}, {30, 40}}};
}

/// On day `day` of its roadmap; in the stage of that day.
inline RoadmapPlan somePlan(qint64 day = 24, const QString& state = QStringLiteral("running")) {
  RoadmapPlan plan;
  plan.id = QStringLiteral("p1");
  plan.state = state;
  plan.templateId = QStringLiteral("t1");
  plan.templateName = QStringLiteral("Google schedule · 42 days");
  plan.stages = someStages();
  plan.startedOn = QStringLiteral("2026-10-28");
  plan.endsOn = QStringLiteral("2026-12-08");
  plan.length = 42;
  plan.dayIndex = day;
  plan.campaignCapToday = 10;
  plan.version = 4;
  qint64 before = 0;
  for (const RoadmapStage& stage : plan.stages) {
    if (day > before && day <= before + stage.days)
      plan.stage = RoadmapPlan::StageNow{stage.key, stage.name, day - before, stage.days};
    before += stage.days;
  }
  return plan;
}

inline RampupItem someItem(const QString& id, std::optional<RoadmapPlan> plan = somePlan()) {
  RampupItem item;
  item.mailboxId = id;
  item.address = id + QStringLiteral("@a.example");
  item.displayName = QStringLiteral("Ana");
  item.provider = QStringLiteral("google");
  item.role = QStringLiteral("sender");
  item.status = MailboxStatus(QStringLiteral("active"));
  item.today = QStringLiteral("2026-11-20");
  item.plan = std::move(plan);
  item.sent = {17, 21, 8};
  item.inboxPct7d = 94.4;
  item.settings.enabled = true;
  item.settings.dailyLimit = 24;
  item.settings.increasePerDay = 1;
  item.settings.replyRate = 32;
  item.health = {94, false, 412, 388, 17, 15, 7};
  return item;
}

inline QByteArray listOf(const QList<RampupItem>& items) { return encodeJSON(RampupList{items}); }

inline QByteArray detailOf(const RampupItem& item, const QList<RoadmapDay>& days = {}) {
  RampupDetail detail{
      item.mailboxId, item.mailboxNumber, item.address, item.displayName, item.provider, item.role,   item.status,
      item.today,     item.plan,          item.sent,    item.inboxPct7d,  item.settings, item.health, days};
  return encodeJSON(detail);
}

/// The list of accounts, on show.
struct RampupFixture : AppFixture {
  const QString get = QStringLiteral("GET /rampup"), templates = QStringLiteral("GET /rampup/templates");
  const QString bulk = QStringLiteral("POST /rampup/bulk");
  RampupStore store{*context};

  void load(const QList<RampupItem>& items) {
    store.list()->appear();
    api.expect(get);
    api.expect(templates);
    store.ensureLoaded();
    api.answer(get, listOf(items));
    api.answer(templates, encodeJSON(TemplatePage{{aTemplate()}, 0}));
  }
  static RoadmapTemplate aTemplate() {
    RoadmapTemplate made;
    made.id = QStringLiteral("t1");
    made.name = QStringLiteral("Google schedule · 42 days");
    made.provider = QStringLiteral("google");
    made.stages = someStages();
    made.length = 42;
    made.version = 3;
    made.updatedAt = QStringLiteral("2026-10-01T00:00:00Z");
    return made;
  }
  QString text(const QString& id, const char* role) {
    const auto* rows = store.list()->rows();
    return cell(*rows, rows->rowOf(id), role).toString();
  }
  QJsonObject sentBody() const { return QJsonDocument::fromJson(api.last().request.body.value_or("{}")).object(); }
  QString lastToast() const { return toasts.toasts().isEmpty() ? QString() : toasts.toasts().last().message; }
  int asked(const QString& label) const {
    int count = 0;
    for (const APICall& call : api.sent()) count += call.request.label() == label;
    return count;
  }
};

}  // namespace orv::test
