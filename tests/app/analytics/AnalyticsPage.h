#pragma once

#include <QAbstractItemModelTester>
#include <QTest>

#include "app/analytics/AnalyticsStore.h"
#include "tests/support/AppFixture.h"

namespace orv::test {

using namespace Qt::Literals::StringLiterals;

inline const auto summaryCall = u"GET /analytics/summary"_s;

inline const QByteArray totals =
    R"({"sent":28448,"contacted":20000,"newContacted":3912,"opens":9957,"clicks":9,"replies":781,"autoReplies":64,)"
    R"("bounces":372,"unsubscribes":118,"opportunities":226,"opportunityValue":1500,"interested":226,)"
    R"("meetingsBooked":58,"meetingsCompleted":41,"won":1})";

// Escaped quotes in raw strings lead the meta-object compiler astray; hence the code points.
inline const QByteArray campaignRows =
    R"({"id":"c1","name":"Acme, \u0022Q3\u0022","status":"running","leads":100,"sent":200,"contacted":90,"opens":50,)"
    R"("clicks":4,"replies":5,"bounces":7,"interested":3,"opportunities":2,"opportunityValue":1500},)"
    R"({"id":"c2","name":"beta\nnew","status":"odd","leads":1,"sent":0,"contacted":0,"replies":9,"bounces":0,)"
    R"("interested":0,"opportunities":0})";

inline const QByteArray accountRows =
    R"({"id":"m1","address":"ana@a.example","status":"active","health":"at_risk","inboxPct7d":93,"sent":200,)"
    R"("contacted":90,"opens":50,"clicks":4,"replies":5,"bounces":3,"interested":3},)"
    R"({"id":"m2","address":"Bo@a.example","status":"paused","sent":100,"contacted":1,"replies":8,"bounces":4,)"
    R"("interested":0})";

inline QByteArray summaryOf(const QByteArray& more = {}, const QByteArray& campaigns = campaignRows,
                            const QByteArray& days = R"({"day":"2026-11-20","sent":7,"opens":2,"replies":1})") {
  return R"({"from":"x","to":"x","timeZone":"Europe/Berlin","tracking":{"opens":true,"clicks":false},"totals":)" +
         totals + R"(,"days":[)" + days + R"(],"campaigns":[)" + campaigns + R"(],"accounts":[)" + accountRows + "]" +
         more + "}";
}

/// A line a figure: "title: value unit, detail, warning".
inline QStringList lines(const QList<Figure>& figures) {
  QStringList lines;
  for (const Figure& figure : figures) {
    QString line = figure.title + u": "_s + figure.value;
    if (!figure.unit.isEmpty()) line += u' ' + figure.unit;
    for (const QString& more : {figure.detail, figure.warning})
      if (!more.isEmpty()) line += u", "_s + more;
    lines.append(line);
  }
  return lines;
}

inline QStringList keys(const QList<Choice>& choices) {
  QStringList keys;
  for (const Choice& choice : choices) keys.append(choice.key);
  return keys;
}

inline QString queryText(const APICall& call) {
  QStringList items;
  for (const auto& [name, value] : call.request.query) items.append(name + u'=' + value.value_or(QString()));
  return items.join(u'&');
}

/// The analytics page's store, and what the service says of it. Tests inherit it.
class AnalyticsPage : public QObject {
 protected:
  void open() {
    f = std::make_unique<AppFixture>();
    store = std::make_unique<AnalyticsStore>(*f->context);
    for (ListModel* rows : QList<ListModel*>{store->campaignRows(), store->accountRows()})
      new QAbstractItemModelTester(rows, QAbstractItemModelTester::FailureReportingMode::Fatal, store.get());
  }
  void leave() {
    store.reset();
    f.reset();
  }
  void load(const QByteArray& answer = summaryOf()) {
    f->api.expect(summaryCall);
    store->ensureLoaded();
    f->api.answer(summaryCall, answer);
  }
  QString lastToast() const { return f->toasts.count() ? f->toasts.toasts().last().message : QString(); }

  std::unique_ptr<AppFixture> f;
  std::unique_ptr<AnalyticsStore> store;
};

}  // namespace orv::test
