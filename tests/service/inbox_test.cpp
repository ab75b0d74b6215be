#include <QSignalSpy>
#include <QTest>

#include "kit/models/inbox/draftRequests.h"
#include "kit/models/inbox/draftReview.h"
#include "kit/models/inbox/inboxRequests.h"
#include "kit/models/inbox/inboxWords.h"
#include "kit/models/inbox/setterRequests.h"
#include "kit/models/inbox/setterSettings.h"
#include "kit/models/inbox/setterTraining.h"
#include "kit/models/inbox/threadDetail.h"
#include "kit/models/inbox/threadFilter.h"
#include "tests/service/Client.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

/// A reply's way over HTTP: it arrives, the desktop tells of it, its draft is approved and goes out.
class InboxJourneyTest : public QObject {
  Q_OBJECT

  std::unique_ptr<ServiceProcess> service;
  std::unique_ptr<Desk> desk;
  std::unique_ptr<Client> client;

  Notifier& notifier() { return *client->app().notifier(); }
  template <class R>
  R send(Request<R> request) {
    return client->sendElsewhere(std::move(request));
  }
  /// The person comes back to the window until something was told; the next minute would do the same.
  bool isTold() {
    notifier().setActive(false);
    notifier().setActive(true);
    return QTest::qWaitFor([this] { return !desk->notifications.shown.isEmpty(); }, 300);
  }

 private Q_SLOTS:
  void init() {
    service = std::make_unique<ServiceProcess>(QStringList{u"--replies-per-minute"_s, u"240"_s});
    desk = std::make_unique<Desk>();
    client = std::make_unique<Client>(*desk, service->url());
    client->signInWithPassword();
  }
  void cleanup() {
    client.reset();
    desk.reset();
    service.reset();
  }

  void fromArrivalToApproval() {
    notifier().begin();
    QTRY_VERIFY(!desk->preferences.notifySince(u"northgate"_s).isEmpty());
    QVERIFY(desk->notifications.shown.isEmpty());
    const qint64 before = *client->app().session()->context().unread();
    QSignalSpy came(&client->app().session()->context(), &WorkspaceContext::mailCame);
    QTRY_VERIFY_WITH_TIMEOUT(isTold(), 20'000);
    QVERIFY(came.size() > 0 && *client->app().session()->context().unread() > before);
    const auto told = desk->notifications.shown.first();
    QVERIFY2(!told.title.isEmpty(), qPrintable(told.title));

    Q_EMIT desk->notifications.followed(told.id, {});
    QCOMPARE(client->app().router()->page(), Page::inbox);
    const auto single = client->app().router()->openedItem(Page::inbox);
    const QString id =
        single.isEmpty() ? send(Requests::listThreads({.label = u"interested"_s})).items.first().id : single;
    const ThreadDetail detail = send(Requests::getThread(id));
    QVERIFY(detail.thread.unread && detail.thread.label->isPositive());
    // Where the agent is off, it has to be asked.
    const Draft waiting = detail.drafts.isEmpty() ? send(Requests::draftReply(id)) : detail.drafts.first();

    const Draft approved = send(Requests::approveDraft(waiting.id, {.body = u"Hi,\n\nyes."_s}));
    QCOMPARE(approved.status, u"approved"_s);
    QCOMPARE(approved.aiBody, waiting.body);
    QTRY_COMPARE_WITH_TIMEOUT(send(Requests::getThread(id)).messages.last().draftId, std::optional(approved.id),
                              15'000);
    QTRY_VERIFY_WITH_TIMEOUT(send(Requests::draftTraining(approved.id)).done, 15'000);
    QCOMPARE(send(Requests::listDrafts(words::draftEdited)).items.first().draft.id, approved.id);
  }
};

QTEST_GUILESS_MAIN(InboxJourneyTest)
#include "inbox_test.moc"
