#pragma once

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include "app/leads/LeadsStore.h"
#include "tests/support/AppFixture.h"

namespace orv::test {

/// The search for leads, on show.
struct SearchFixture : AppFixture {
  const QString leads = QStringLiteral("GET /leads"), pools = QStringLiteral("GET /leads/pools");
  const QString facets = QStringLiteral("GET /leads/facets"), unlock = QStringLiteral("POST /leads/unlock");
  const QString saved = QStringLiteral("GET /lead-searches"), usage = QStringLiteral("GET /leads/unlocks");

  LeadActions actions{*context};
  std::unique_ptr<LeadsStore> store = std::make_unique<LeadsStore>(*context, actions);
  LeadFinder& finder = *store->finder();
  LeadFilters& filters = *finder.filters();
  LeadResults& results = *finder.results();

  static QByteArray lead(const QByteArray& id, const QByteArray& more = {}) {
    return R"({"id":")" + id +
           R"(","email":"","locked":true,"esp":"google","verification":"valid","source":"linkedin",)" +
           R"("fullName":"Lead )" + id + R"(","createdAt":"2026-03-01T08:00:00Z")" + more + "}";
  }
  static QByteArray page(const QByteArrayList& items, qint64 count = 100, bool exact = true,
                         const QByteArray& cursor = {}) {
    return R"({"items":[)" + items.join(',') + R"(],"count":{"value":)" + QByteArray::number(count) + R"(,"exact":)" +
           (exact ? "true" : "false") + "}" + (cursor.isEmpty() ? "" : R"(,"nextCursor":")" + cursor + '"') + "}";
  }
  static QByteArray poolSizes(int fresh, int used) {
    return R"({"all":{"value":)" + QByteArray::number(fresh + used) + R"(,"exact":true},"new":)" +
           QByteArray::number(fresh) + R"(,"used":)" + QByteArray::number(used) + "}";
  }
  static QByteArray facetPage(const QByteArrayList& values) {
    QByteArrayList items;
    for (const QByteArray& value : values)
      items.append(R"({"value":")" + value + R"(","label":")" + value + R"(","n":1200})");
    return R"({"items":[)" + items.join(',') + "]}";
  }

  void open(const QByteArray& first, const QByteArray& searches = "[]") {
    store->appear();
    results.list()->appear();
    for (const QString& label : {leads, pools, QStringLiteral("GET /leads/totals"), saved}) api.expect(label);
    finder.ensureLoaded();
    api.answer(leads, first);
    api.answer(pools, poolSizes(80, 20));
    api.answer(QStringLiteral("GET /leads/totals"), R"({"all":400000,"bySource":{"linkedin":300000}})");
    api.answer(saved, searches);
  }
  void expectSearch() {
    api.expect(leads);
    api.expect(pools);
  }
  /// What the newest request of the name asked for.
  QStringList query(const QString& label) const {
    QStringList items;
    for (const APICall& call : api.sent()) {
      if (call.request.label() != label) continue;
      items.clear();
      for (const QueryItem& item : call.request.query) items.append(item.name + u'=' + item.value.value_or(QString()));
    }
    return items;
  }
  int asked(const QString& label) const {
    int count = 0;
    for (const APICall& call : api.sent()) count += call.request.label() == label;
    return count;
  }
  QStringList chips() {
    QStringList texts;
    for (const Choice& chip : filters.chips())
      texts.append((chip.ticked ? QStringLiteral("Not: ") : QString()) + chip.label + u'|' + chip.detail);
    return texts;
  }
  QString lastToast() const { return toasts.toasts().isEmpty() ? QString() : toasts.toasts().last().message; }
  QJsonObject sentBody() const { return QJsonDocument::fromJson(api.last().request.body.value_or("{}")).object(); }
};

}  // namespace orv::test
