#include <QTest>

#include "kit/models/analytics/analyticsRequests.h"
#include "kit/models/analytics/dashboard.h"
#include "kit/models/mailboxes/googleWorkspace.h"
#include "kit/models/mailboxes/mailboxBulk.h"
#include "kit/models/mailboxes/mailboxHistory.h"
#include "kit/models/mailboxes/mailboxPage.h"
#include "kit/models/mailboxes/mailboxPatch.h"
#include "kit/models/mailboxes/mailboxRequests.h"
#include "kit/models/mailboxes/newMailbox.h"
#include "kit/models/mailboxes/trackingDomainCheck.h"
#include "tests/demo/DemoFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

MailboxConnectionIn login(const QString& password = u"secret"_s) {
  return {MailboxConnectionIn::SmtpImap{
      u"ana"_s, password, {u"smtp.a.example"_s, 587, false}, {u"imap.a.example"_s, 993, true}, {}, {}}};
}

}  // namespace

class DemoMailboxesTest : public QObject {
  Q_OBJECT

  std::unique_ptr<DemoFixture> f;

  QList<Mailbox> all(bool archived = false) {
    QList<Mailbox> all;
    std::optional<QString> cursor;
    do {
      const MailboxPage page = f->ask(Requests::listMailboxes(archived, cursor));
      all += page.items;
      cursor = page.nextCursor;
    } while (cursor);
    return all;
  }
  Mailbox get(const QString& id) { return f->ask(Requests::getMailbox(id)); }
  QString idOf(const QString& status) {
    const auto boxes = all();
    const auto found = std::ranges::find_if(
        boxes, [&status](const Mailbox& box) { return !box.isPool() && box.status.rawValue == status; });
    if (found == boxes.end()) qFatal("The sample has no such mailbox");
    return found->id;
  }
  Mailbox settled(const QString& id) {
    f->clock.advance(15s);
    return get(id);
  }

 private Q_SLOTS:
  void init() { f = std::make_unique<DemoFixture>(); }
  void cleanup() { f.reset(); }

  void pagesAreWholeThoughSomeLeaveBetweenThem() {
    f = std::make_unique<DemoFixture>(1, demo::DemoScale{0, 450, 0});
    const MailboxPage first = f->ask(Requests::listMailboxes());
    QCOMPARE(first.items.size(), 200);
    const QString last = first.items.last().id;
    f->ask(Requests::bulkMailboxes({.action = u"delete"_s, .ids = {first.items.first().id, last}}));
    const MailboxPage second = f->ask(Requests::listMailboxes(false, first.nextCursor));
    QCOMPARE(*second.items.first().number, *first.items.last().number + 1);
    QVERIFY(!second.counts && !second.archivedCount && !second.tags);
    QSet<QString> ids;
    for (const Mailbox& box : all()) ids.insert(box.id);
    QCOMPARE(ids.size(), 448 + 3);
    QCOMPARE(*f->ask(Requests::listMailboxes()).archivedCount, 4);
  }

  void rowsAgreeWithTheirHistory() {
    f->clock.advance(24h * 2 + 15h);
    bool sends = false;
    for (const Mailbox& box : all()) {
      if (box.isPool()) continue;
      const auto history = f->ask(Requests::mailboxHistory(box.id, 7));
      QCOMPARE(history.days.size(), 7);
      const auto& today = history.days.last();
      QCOMPARE(box.warmup.sentToday, today.sent);
      QCOMPARE(box.warmup.receivedToday, today.received);
      QCOMPARE(box.campaign->sentToday, today.campaignSent);
      qint64 replies = 0, placed = 0, spam = 0;
      for (const auto& day : history.days) {
        QCOMPARE(day.inbox + day.spam, day.placed);
        replies += day.replies;
        placed += day.placed;
        spam += day.spam;
      }
      QCOMPARE(box.warmup.replies7d, replies);
      QCOMPARE(box.warmup.placed7d, placed);
      QCOMPARE(box.warmup.spam7d, spam);
      QCOMPARE(f->ask(Requests::mailboxHistory(box.id, 90)).days.last(), today);
      sends |= today.sent > 0 && today.campaignSent > 0;
    }
    QVERIFY(sends);
  }

  void aCheckEndsWell() {
    const Mailbox made = f->ask(Requests::createMailbox({.address = u"ana@a.example"_s, .displayName = {}}, login()));
    QVERIFY(made.status.isVerifying());
    QCOMPARE(made.displayName, u"Ana"_s);
    const Mailbox ended = settled(made.id);
    QVERIFY(ended.status.isActive());
    QCOMPARE(ended.connection->status, u"connected"_s);
    QVERIFY(ended.version > made.version && ended.connection->lastVerifiedAt);
  }

  void aCheckFailsUntilTheConnectionIsReplaced() {
    const Mailbox made =
        f->ask(Requests::createMailbox({.address = u"ana@a.example"_s, .displayName = u"A"_s}, login(u"wrong"_s)));
    QVERIFY(settled(made.id).status.isFailed());
    QVERIFY(get(made.id).connection->lastError);
    QCOMPARE(f->refusalCode(Requests::resumeMailbox(made.id)), u"not_connected"_s);
    f->ask(Requests::verifyMailbox(made.id));
    QVERIFY(settled(made.id).status.isFailed());
    QVERIFY(f->ask(Requests::reconnectMailbox(made.id, login())).status.isVerifying());
    QVERIFY(settled(made.id).status.isActive());
  }

  void whatIsNoConnectionIsRefused() {
    const NewMailboxBody body{.address = u"ana@a.example"_s, .displayName = u"A"_s};
    auto noPort = std::get<MailboxConnectionIn::SmtpImap>(login().way);
    noPort.imap.port = 0;
    QCOMPARE(f->refusalCode(Requests::createMailbox(body, {noPort})), u"invalid_input"_s);
    QCOMPARE(f->refusalCode(Requests::createMailbox(body, {MailboxConnectionIn::MsGraphApp{}})), u"invalid_input"_s);
    f->ask(Requests::createMailbox(body, login()));
    QCOMPARE(f->refusalCode(Requests::createMailbox(body, login())), u"exists"_s);
  }

  void aStaleVersionIsRefused() {
    const QString id = idOf(u"active"_s);
    const auto version = get(id).version;
    f->ask(Requests::updateMailbox(id, {.sendLimit = 7}, version));
    QVERIFY(isVersionConflict(f->refusal(Requests::updateMailbox(id, {.sendLimit = 9}, version))));
    QCOMPARE(get(id).sendLimit, 7);
  }

  void trackingDomainsAreCheckedSetAndTakenAway() {
    const QString id = idOf(u"active"_s);
    MailboxPatch patch;
    patch.trackingDomain = u"go.a.example"_s;
    QVERIFY(!f->ask(Requests::updateMailbox(id, patch, {})).trackingDomainVerifiedAt);
    const auto wrong = f->ask(Requests::checkTrackingDomain(id));
    QVERIFY(!wrong.check.ok && wrong.check.found != wrong.check.expected && wrong.check.message);
    patch.trackingDomain = u"track.a.example"_s;
    f->ask(Requests::updateMailbox(id, patch, {}));
    QVERIFY(f->ask(Requests::checkTrackingDomain(id)).mailbox.trackingDomainVerifiedAt);
    patch.trackingDomain = Clearable<QString>::cleared();
    QVERIFY(!f->ask(Requests::updateMailbox(id, patch, {})).trackingDomain);
    QCOMPARE(f->refusalCode(Requests::checkTrackingDomain(id)), u"no_tracking_domain"_s);
  }

  void bulkTellsWhatFailed() {
    const QString good = idOf(u"active"_s), failed = idOf(u"failed"_s);
    f->ask(Requests::pauseMailbox(good));
    const auto result = f->ask(Requests::bulkMailboxes({.action = u"resume"_s, .ids = {good, failed, u"mb_none"_s}}));
    QCOMPARE(result.ok, 1);
    QCOMPARE(result.failed.size(), 2);
    QVERIFY(get(good).status.isActive());
    QCOMPARE(f->refusalCode(Requests::bulkMailboxes({.action = u"dance"_s, .ids = {good}})), u"invalid_input"_s);
    QCOMPARE(f->refusalCode(Requests::bulkMailboxes({.action = u"pause"_s, .ids = {}})), u"invalid_input"_s);
    const auto tracked = f->ask(Requests::bulkMailboxes(
        {.action = u"set_tracking_domain"_s, .ids = {good}, .trackingDomain = u"track.{domain}"_s}));
    QCOMPARE(tracked.verified, 1);
    QCOMPARE(get(good).trackingDomain, u"track.northgate-mail.example"_s);
  }

  void aMailboxComesBackFromTheArchiveAsItWas() {
    const QString campaign = f->idOf(u"running"_s);
    const auto senders = f->ask(Requests::getCampaign(campaign)).senders->size();
    const Mailbox box = get(f->ask(Requests::getCampaign(campaign)).senders->first().mailboxId);
    f->ask(Requests::deleteMailbox(box.id, false));
    QCOMPARE(all(true).first().id, box.id);
    QCOMPARE(f->ask(Requests::getCampaign(campaign)).senders->size(), senders - 1);
    QCOMPARE(f->row(campaign)->senders, senders - 1);
    const Mailbox restored = f->ask(Requests::restoreMailbox(box.id));
    QCOMPARE(restored.status, box.status);
    QCOMPARE(restored.connection, box.connection);
    QCOMPARE(f->ask(Requests::getCampaign(campaign)).senders->size(), senders);
    QCOMPARE(f->refusalCode(Requests::restoreMailbox(box.id)), u"not_archived"_s);
    f->ask(Requests::deleteMailbox(box.id, true));
    QCOMPARE(f->refusalCode(Requests::getMailbox(box.id)), u"not_found"_s);
    f->clock.advance(24h * 31);
    QVERIFY(all(true).isEmpty());
  }

  void campaignsAndDashboardHearOfAChange() {
    const QString campaign = f->idOf(u"running"_s);
    const auto active = f->ask(Requests::dashboard()).inbox->active;
    const auto before = f->ask(Requests::getCampaign(campaign)).senders.value();
    const auto ready = std::ranges::find(before, true, &CampaignSender::ready);
    f->ask(Requests::pauseMailbox(ready->mailboxId));
    const auto after = f->ask(Requests::getCampaign(campaign)).senders.value();
    const auto now = std::ranges::find(after, ready->mailboxId, &CampaignSender::mailboxId);
    QVERIFY(!now->ready && now->reason == u"Paused"_s);
    QCOMPARE(f->ask(Requests::dashboard()).inbox->active, active - 1);
  }

  void googleLetsTheServiceInAfterAWhile() {
    const AddressBody admin{u" it@a.example "_s};
    int asked = 0;
    GoogleDirectory directory;
    do {
      directory = f->ask(Requests::googleDirectory(admin));
    } while (directory.code == u"admin_step_missing"_s && ++asked < 10);
    QVERIFY(asked >= 2 && asked < 10);
    QVERIFY(!directory.code && directory.existing.isEmpty() && directory.addresses.size() > 5);
    const auto outcome = f->ask(Requests::googleConnect({directory.addresses + QList{u"who@b.example"_s}}));
    QMap<QString, qint64> byStatus;
    for (const auto& result : outcome.results) ++byStatus[result.status];
    QCOMPARE(byStatus[u"connected"_s], outcome.connected);
    QVERIFY(byStatus[u"failed"_s] > 0 && byStatus[u"invalid"_s] > 0 && outcome.connected > 0);
    QCOMPARE(f->ask(Requests::googleDirectory(admin)).existing.size(), outcome.connected);
    QCOMPARE(f->ask(Requests::googleConnect({directory.addresses})).connected, 0);
  }

  void googleRefusesInEveryWay() {
    for (const auto& [address, code] : QList<QPair<QString, QString>>{{u"a@gmail.com"_s, u"personal_gmail"_s},
                                                                      {u"user@a.example"_s, u"need_admin"_s},
                                                                      {u"locked@a.example"_s, u"domain_suspended"_s}})
      QCOMPARE(f->ask(Requests::googleDirectory({address})).code, code);
    QVERIFY(f->ask(Requests::googleWorkspaceStatus()).ready);
    f->slug = u"caldera"_s;
    QVERIFY(!f->ask(Requests::googleWorkspaceStatus()).ready);
  }
};

QTEST_GUILESS_MAIN(DemoMailboxesTest)
#include "mailboxes_test.moc"
