#include "tests/app/campaigns/CampaignsPage.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

class CampaignArchiveTest final : public CampaignsPage {
  Q_OBJECT

  void removeFirst() {
    store->remove(u"c1"_s);
    f->overlays.answer(f->overlays.token(), true);
  }

 private Q_SLOTS:
  void init() { open(); }
  void cleanup() { leave(); }

  void undoRestoresTheSameCampaign_data() {
    QTest::addColumn<QByteArray>("status");
    QTest::addColumn<QString>("told");
    QTest::newRow("draft") << "draft"_ba << u"Acme Q3 restored"_s;
    QTest::newRow("paused") << "paused"_ba << u"Acme Q3 restored, paused: resume it to send again"_s;
  }
  void undoRestoresTheSameCampaign() {
    QFETCH(QByteArray, status);
    load();
    f->api.expect(u"DELETE /campaigns/c1"_s);
    removeFirst();
    QVERIFY(f->api.last().request.query.isEmpty());
    f->api.answer(u"DELETE /campaigns/c1"_s, {}, 204);
    QCOMPARE(names(), (QStringList{u"Beta"_s, u"gamma"_s}));
    QCOMPARE(store->archivedCount(), 3);

    f->api.expect(u"POST /campaigns/c1/restore"_s);
    f->api.expect(u"GET /campaigns"_s);
    const auto toast = f->toasts.toasts().last();
    QCOMPARE(toast.actionLabel, u"Undo"_s);
    f->toasts.act(toast.id);
    f->api.answer(u"POST /campaigns/c1/restore"_s, campaign("c1", "Acme Q3", status));
    QTEST(f->toasts.toasts().last().message, "told");
    f->api.answer(u"GET /campaigns"_s, threeRows);
    QCOMPARE(names().size(), 3);
    QCOMPARE(store->archivedCount(), 2);
  }

  void undoOutlivesTheStoreButNotTheSignIn() {
    load();
    f->api.expect(u"DELETE /campaigns/c1"_s);
    removeFirst();
    f->api.answer(u"DELETE /campaigns/c1"_s, {}, 204);
    store.reset();
    f->api.expect(u"POST /campaigns/c1/restore"_s);
    const auto undo = f->toasts.toasts().last().action;
    undo();
    f->api.answer(u"POST /campaigns/c1/restore"_s, campaign("c1", "Acme Q3", "draft"));
    QCOMPARE(f->toasts.toasts().last().message, u"Acme Q3 restored"_s);
    f->context->close();
    undo();
    settle();
    QCOMPARE(f->api.waiting(), 0);
  }

  void archiveIsLoadedWhenShownAndEmptied() {
    load();
    f->api.expect(u"GET /campaigns"_s);
    store->setShowArchived(true);
    QCOMPARE(f->api.last().request.query, (QList<QueryItem>{{u"archived"_s, u"1"_s}}));
    f->api.answer(u"GET /campaigns"_s, list({row("a1", "Old", "archived", R"(,"archivedAt":"2026-03-03T12:00:00Z")")}));
    const auto first = store->archivedRows()->index(0);
    const auto roles = store->archivedRows()->roleNames();
    QCOMPARE(first.data(roles.key("deletedText")).toString(), u"3 Mar"_s);
    QCOMPARE(first.data(roles.key("goneText")).toString(), u"2 Apr"_s);

    Campaign written;
    written.id = u"a1"_s;
    written.name = u"Older"_s;
    written.status = CampaignStatus(u"paused"_s);
    f->context->changes().publish(written, f->context->changes().stamp(), false);
    QCOMPARE(store->archivedRows()->records().front().name, u"Older"_s);
    QCOMPARE(store->archivedRows()->records().front().status.rawValue, u"archived"_s);
    written.name = u"Old"_s;
    f->context->changes().publish(written, f->context->changes().stamp(), false);

    store->removeForGood(u"c1"_s);
    QVERIFY(!f->overlays.asking());
    store->removeForGood(u"a1"_s);
    QCOMPARE(f->overlays.confirmLabel(), u"Delete for good"_s);
    f->api.expect(u"DELETE /campaigns/a1"_s);
    f->overlays.answer(f->overlays.token(), true);
    QCOMPARE(f->api.last().request.query, (QList<QueryItem>{{u"permanent"_s, u"1"_s}}));
    f->api.answer(u"DELETE /campaigns/a1"_s, {}, 204);
    QCOMPARE(store->archivedRows()->count(), 0);
    QCOMPARE(f->toasts.toasts().last().message, u"Old deleted for good"_s);
    QVERIFY(store->archived()->state().isEmpty());
  }

  void theArchiveFailsAndSortsByItself() {
    load();
    f->api.expect(u"GET /campaigns"_s);
    store->setShowArchived(true);
    f->api.answer(u"GET /campaigns"_s, refusal, 500);
    QVERIFY(!store->archived()->state().isReady() && !store->archived()->state().isLoading());
    f->api.expect(u"GET /campaigns"_s);
    store->refresh();
    QCOMPARE(f->api.last().request.query, (QList<QueryItem>{{u"archived"_s, u"1"_s}}));
    f->api.answer(u"GET /campaigns"_s,
                  list({with("a", {1, 30, 0, 0, 0}, "2026-03-02"), with("b", {3, 10, 0, 0, 0}, "2026-03-03"),
                        with("c", {2, 20, 0, 0, 0}, "2026-03-01")}));
    const auto sorted = [this](const QString& key, bool descending = true) {
      store->sortArchived(key, descending);
      QString ids;
      for (const auto& record : store->archivedRows()->records()) ids += record.id;
      return ids;
    };
    QCOMPARE(sorted(u"leads"_s), u"bca"_s);
    QCOMPARE(sorted(u"sent"_s), u"acb"_s);
    QCOMPARE(sorted(u"deleted"_s), u"bac"_s);
    QCOMPARE(sorted(u"gone"_s), u"bac"_s);
    QCOMPARE(sorted(u"gone"_s, false), u"cab"_s);
    QCOMPARE(names().size(), 3);

    f->api.expect(u"POST /campaigns/a/restore"_s);
    store->restore(u"a"_s);
    f->api.answer(u"POST /campaigns/a/restore"_s, refusal, 422);
    QCOMPARE(f->toasts.toasts().last().message, u"Couldn’t restore a"_s);
    QCOMPARE(store->archivedRows()->count(), 3);
    QCOMPARE(store->archivedCount(), 2);
    QVERIFY(store->busy().ids().isEmpty());
    store->removeForGood(u"b"_s);
    f->api.expect(u"DELETE /campaigns/b"_s);
    f->overlays.answer(f->overlays.token(), true);
    f->api.answer(u"DELETE /campaigns/b"_s, refusal, 422);
    QCOMPARE(f->toasts.toasts().last().message, u"Couldn’t delete b"_s);
    QCOMPARE(store->archivedRows()->count(), 3);
  }

  void whatMayHaveMovedIsReadOnBothSides() {
    load();
    f->api.expect(u"GET /campaigns"_s);
    store->setShowArchived(true);
    f->api.answer(u"GET /campaigns"_s, list({row("a1", "Old", "archived")}));
    const auto isStale = [this] {
      const bool stale = store->archived()->needsLoad();
      f->api.expect(u"GET /campaigns"_s);
      store->archived()->ensureLoaded();
      f->api.answer(u"GET /campaigns"_s, list({row("a1", "Old", "archived")}));
      return stale;
    };
    // What is on the screen is read at once, the other side when it is shown again.
    f->api.expect(u"POST /campaigns/a1/restore"_s);
    store->restore(u"a1"_s);
    f->api.expect(u"GET /campaigns"_s);
    f->api.fail(u"POST /campaigns/a1/restore"_s, TransportFailure::timedOut);
    f->api.answer(u"GET /campaigns"_s, threeRows);
    QVERIFY(isStale());
    f->api.expect(u"DELETE /campaigns/c1"_s);
    removeFirst();
    for (int side = 0; side < 2; ++side) f->api.expect(u"GET /campaigns"_s);
    f->api.fail(u"DELETE /campaigns/c1"_s, TransportFailure::timedOut);
    f->api.answer(u"GET /campaigns"_s, threeRows);
    f->api.answer(u"GET /campaigns"_s, list({row("a1", "Old", "archived")}));
    QVERIFY(!store->archived()->needsLoad());
    // Archived campaigns count their senders as well.
    f->api.expect(u"GET /campaigns"_s);
    f->context->changes().gone<Mailbox>(u"m1"_s, f->context->changes().stamp());
    f->api.answer(u"GET /campaigns"_s, threeRows);
    QVERIFY(isStale());
  }
};

QTEST_GUILESS_MAIN(CampaignArchiveTest)
#include "campaignarchive_test.moc"
