#pragma once

#include <QAbstractItemModelTester>
#include <QTest>

#include "app/campaigns/CampaignsStore.h"
#include "tests/support/AppFixture.h"
#include "tests/support/cell.h"

namespace orv::test {

using namespace Qt::Literals::StringLiterals;

inline QByteArray row(const QByteArray& id, const QByteArray& name, const QByteArray& status,
                      const QByteArray& more = {}) {
  return R"({"id":")" + id + R"(","name":")" + name + R"(","status":")" + status +
         R"(","senders":2,"steps":1,"leads":100,"done":40,"sent":200,"replied":5,"positive":3,"bounced":7,)"
         R"("createdAt":"2026-03-01T10:00:00Z","version":4)" +
         more + "}";
}

/// A row told apart by its figures: leads, sent, replied, positive, bounced.
inline QByteArray with(const QByteArray& id, const std::array<int, 5>& figures, const QByteArray& archivedOn = {}) {
  QByteArray row = R"({"id":")" + id + R"(","name":")" + id + R"(","status":"draft","senders":0,"steps":0,)" +
                   R"("createdAt":"2026-01-01T00:00:00Z")";
  const std::array names{"leads", "sent", "replied", "positive", "bounced"};
  for (size_t i = 0; i < names.size(); ++i) row += R"(,")"_ba + names[i] + R"(":)" + QByteArray::number(figures[i]);
  return row + (archivedOn.isEmpty() ? "" : R"(,"archivedAt":")" + archivedOn + R"(T12:00:00Z")") + "}";
}

inline QByteArray list(const QList<QByteArray>& rows, int archived = 2) {
  return R"({"items":[)" + rows.join(',') + R"(],"archivedCount":)" + QByteArray::number(archived) + "}";
}

inline QByteArray campaign(const QByteArray& id, const QByteArray& name, const QByteArray& status) {
  return R"({"id":")" + id + R"(","name":")" + name + R"(","status":")" + status + R"(","version":5})";
}

inline const QByteArray threeRows =
    list({row("c1", "Acme Q3", "running", R"(,"tags":["q3","hot"])"),
          row("c2", "Beta", "paused", R"(,"tags":["cold"])"), row("c3", "gamma", "draft")});
inline const QByteArray refusal = R"({"title":"Not now","detail":"It is being checked."})";

/// The campaigns' list on the screen. Tests inherit it.
class CampaignsPage : public QObject {
 protected:
  void open() {
    f = std::make_unique<AppFixture>();
    store = std::make_unique<CampaignsStore>(*f->context);
    store->list()->appear();
    new QAbstractItemModelTester(store->rows(), QAbstractItemModelTester::FailureReportingMode::Fatal, store.get());
    new QAbstractItemModelTester(store->archivedRows(), QAbstractItemModelTester::FailureReportingMode::Fatal,
                                 store.get());
  }
  void leave() {
    store.reset();
    f.reset();
  }
  void load(const QByteArray& answer = threeRows) {
    f->api.expect(u"GET /campaigns"_s);
    store->ensureLoaded();
    f->api.answer(u"GET /campaigns"_s, answer);
  }
  QStringList names() const {
    QStringList shown;
    for (const auto& record : store->rows()->records()) shown.append(record.name);
    return shown;
  }
  QString status(const QString& id) const {
    for (const auto& record : store->rows()->records())
      if (record.id == id) return record.status.rawValue;
    return {};
  }
  QVariant cell(const QString& id, const QByteArray& name) const {
    return test::cell(*store->rows(), store->rows()->rowOf(id), name);
  }

  std::unique_ptr<AppFixture> f;
  std::unique_ptr<CampaignsStore> store;
};

}  // namespace orv::test
