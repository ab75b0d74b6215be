#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include "app/leads/LeadListStore.h"
#include "app/leads/LeadsStore.h"
#include "tests/support/AppFixture.h"

namespace orv::test {

/// The workspace's leads, and a service that is told what to say of them.
struct LeadsFixture : AppFixture {
  LeadActions actions{*context};
  std::optional<LeadsStore> store{std::in_place, *context, actions};

  QString lists = QStringLiteral("GET /lead-lists"), imports = QStringLiteral("GET /lead-imports");

  static QByteArray list(const QByteArray& id, const QByteArray& name, int leads, const QByteArray& more = {}) {
    return R"({"id":")" + id + R"(","name":")" + name + R"(","leadCount":)" + QByteArray::number(leads) + more + "}";
  }
  static QByteArray page(const QByteArrayList& items) { return R"({"items":[)" + items.join(',') + "]}"; }
  static QByteArray import(const QByteArray& id, const QByteArray& status, const QByteArray& more = {}) {
    return R"({"id":")" + id + R"(","kind":"csv","status":")" + status +
           R"(","fileName":"fair.csv","createdAt":"2026-11-16T16:00:00Z","readRows":0,"inserted":0,"updated":0,)"
           R"("skipped":0,"partsDone":0)" +
           more + "}";
  }

  /// The lists' tab with two lists, an archive that is empty and the given imports.
  LeadLists& openLists(const QByteArrayList& history = {}) {
    LeadLists& opened = *store->lists();
    for (const QString& label : {lists, lists, imports}) api.expect(label);
    opened.list()->appear();
    opened.archived()->appear();
    opened.imports()->list()->appear();
    opened.ensureLoaded();
    api.answer(lists, page({list("li1", "Fair", 9), list("li2", "Clinics", 3)}));
    api.answer(lists, page({}));
    api.answer(imports, page(history));
    return opened;
  }
  QJsonObject sentBody() const { return QJsonDocument::fromJson(api.last().request.body.value_or("{}")).object(); }
  QString lastToast() const { return toasts.toasts().isEmpty() ? QString() : toasts.toasts().last().message; }
  void confirm() { overlays.answer(overlays.token(), true); }
  int asked(const QString& label) const {
    int count = 0;
    for (const APICall& call : api.sent()) count += call.request.label() == label;
    return count;
  }
};

}  // namespace orv::test
