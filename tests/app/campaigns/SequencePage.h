#pragma once

#include <QAbstractItemModelTester>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include "app/campaigns/CampaignStore.h"
#include "tests/support/AppFixture.h"

namespace orv::test {

using namespace Qt::Literals::StringLiterals;

inline const auto get = u"GET /campaigns/c1"_s;
inline const auto put = u"PUT /campaigns/c1/steps"_s;
inline const auto preview = u"POST /campaigns/c1/preview"_s;
inline const QByteArray refusal = R"({"title":"Not now","detail":"It is being checked."})";

inline QByteArray step(int position, const QByteArray& subject, const QByteArray& body, const QByteArray& more = {}) {
  const QByteArray n = QByteArray::number(position);
  return R"({"id":"s)" + n + R"(","position":)" + n + R"(,"delayMinutes":2160,"sameThread":)" +
         (position > 1 ? "true" : "false") + R"(,"variants":[{"id":"v)" + n + R"(","label":"A","subject":")" + subject +
         R"(","body":")" + body + R"(","weight":1,"enabled":true})" + more + "]}";
}

inline QByteArray campaign(const QByteArray& steps, int version = 7, const QByteArray& senders = "[]") {
  return R"({"id":"c1","name":"Acme","status":"draft","version":)" + QByteArray::number(version) + R"(,"senders":)" +
         senders + R"(,"steps":[)" + steps + "]}";
}

inline const QByteArray twoSteps = step(1, "One", "Hi") + "," + step(2, "", "Again");
inline const QByteArray oneSender =
    R"([{"mailboxId":"m","address":"a@b.c","displayName":"A","status":"active","ready":true,"capToday":1,"sentToday":0,"viaTag":false}])";

/// The page of campaign "c1" on the screen, and what its sequence does there. Tests inherit it.
class SequencePage : public QObject {
 protected:
  void open() {
    f = std::make_unique<AppFixture>();
    store = std::make_unique<CampaignStore>(u"c1"_s, *f->context);
    editor = store->sequence();
    f->navigator.openItem(Page::campaigns, u"c1"_s);
    tester = std::make_unique<QAbstractItemModelTester>(editor->steps());
  }
  void leaveStore() {
    tester.reset();
    store.reset();
  }
  void leave() {
    leaveStore();
    f.reset();
  }
  void load(const QByteArray& answer) {
    f->api.expect(get);
    store->ensureLoaded();
    f->api.answer(get, answer);
  }
  void passWait() { f->clock.advance(SequenceAutosave::wait); }
  QStringList toasts() const {
    QStringList messages;
    for (const auto& toast : f->toasts.toasts()) messages.append(toast.message);
    return messages;
  }
  QJsonObject sent() const { return QJsonDocument::fromJson(*f->api.last().request.body).object(); }

  std::unique_ptr<AppFixture> f;
  std::unique_ptr<CampaignStore> store;
  std::unique_ptr<QAbstractItemModelTester> tester;
  SequenceEditor* editor = nullptr;
};

}  // namespace orv::test
