#include "app/settings/SettingsStore.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include "kit/models/campaigns/campaign.h"
#include "tests/support/AppFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto getDetail = u"GET /"_s, patchDetail = u"PATCH /"_s, deletion = u"DELETE /"_s;
const auto getMembers = u"GET /members"_s, getInvites = u"GET /invites"_s;

/// A record of the fixture's kind, by its members' texts.
QByteArray object(const QList<std::pair<QString, QJsonValue>>& members) {
  QJsonObject object;
  for (const auto& [name, value] : members) object.insert(name, value);
  return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QByteArray workspaceAnswer(qint64 version, const QString& name = u"Acme"_s, bool canDelete = true, int value = 50) {
  return object({{u"id"_s, u"w1"_s},
                 {u"slug"_s, u"acme"_s},
                 {u"timeZone"_s, u"Europe/Berlin"_s},
                 {u"role"_s, u"owner"_s},
                 {u"opportunityValue"_s, value},
                 {u"unsubscribesToBlocklist"_s, false},
                 {u"name"_s, name},
                 {u"canDelete"_s, canDelete},
                 {u"version"_s, version}});
}

QByteArray member(const QString& id, const QString& role, const QString& lastSignIn = {}) {
  QList<std::pair<QString, QJsonValue>> all{
      {u"userId"_s, id}, {u"email"_s, id + u"@acme.example"_s}, {u"name"_s, u"N "_s + id}, {u"role"_s, role}};
  if (!lastSignIn.isEmpty()) all.append({u"lastSignInAt"_s, lastSignIn});
  return object(all);
}

QByteArray invite(const QString& id, const QString& email) {
  return object(
      {{u"id"_s, id}, {u"email"_s, email}, {u"role"_s, u"viewer"_s}, {u"expiresAt"_s, u"2026-11-29T08:00:00Z"_s}});
}

QByteArray campaign(const QString& id) {
  QList<std::pair<QString, QJsonValue>> all{{u"id"_s, id},
                                            {u"name"_s, u""_s},
                                            {u"status"_s, u"draft"_s},
                                            {u"createdAt"_s, u""_s},
                                            {u"tags"_s, QJsonArray{u"t1"_s}}};
  for (const auto& count : {u"senders"_s, u"steps"_s, u"leads"_s, u"sent"_s, u"replied"_s, u"positive"_s, u"bounced"_s})
    all.append({count, 0});
  return object(all);
}

QByteArray items(const QByteArrayList& all) { return "{\"items\":[" + all.join(',') + "]}"; }

const QByteArray conflict = object({{u"title"_s, u"Conflict"_s}, {u"code"_s, u"version_conflict"_s}});

}  // namespace

class SettingsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<AppFixture> f;
  std::unique_ptr<SettingsStore> store;

  void be(const QString& role) {
    WorkspaceSummary workspace = f->context->workspace();
    workspace.role = Role(role);
    f->context->setWorkspace(workspace);
  }
  void openWorkspaceTab(const QByteArray& answer = workspaceAnswer(1)) {
    f->api.expect(getDetail);
    store->setTab(u"workspace"_s);
    f->api.answer(getDetail, answer);
  }
  void openMembersTab() {
    f->api.expect(getMembers);
    f->api.expect(getInvites);
    store->setTab(u"members"_s);
    f->api.answer(getMembers, items({member(u"u1"_s, u"owner"_s, u"2026-11-20T08:12:00Z"_s),
                                     member(u"u2"_s, u"member"_s), member(u"u3"_s, u"steward"_s)}));
    f->api.answer(getInvites, items({invite(u"i1"_s, u"i@acme.example"_s)}));
  }
  QJsonObject sentBody() const { return QJsonDocument::fromJson(f->api.last().request.body.value_or("{}")).object(); }
  QString lastToast() const { return f->toasts.toasts().isEmpty() ? QString() : f->toasts.toasts().last().message; }
  void confirm(bool sure = true) {
    f->overlays.answer(f->overlays.token(), sure);
    settle();
  }
  void save(WorkspaceForm& form) {
    f->api.expect(patchDetail);
    form.save();
    settle();
  }

 private Q_SLOTS:
  void init() {
    f = std::make_unique<AppFixture>();
    store = std::make_unique<SettingsStore>(*f->context);
    be(u"owner"_s);
  }
  void cleanup() {
    store.reset();
    f.reset();
  }

  void savesWhatWasChangedOnItsVersion() {
    // Figures that other pages show are other ones by what an opportunity is worth, not by a name.
    bool isTold = false;
    f->context->changes().watch<Campaign>(store.get(), [&isTold](const auto&) { isTold = true; });
    openWorkspaceTab(workspaceAnswer(7));
    WorkspaceForm& form = *store->workspaceForm();
    form.set(u"name"_s, u" New name "_s);
    save(form);
    QCOMPARE(sentBody(), (QJsonObject{{u"name"_s, u"New name"_s}}));
    QCOMPARE(f->api.last().request.ifMatch, std::optional<qint64>(7));
    f->api.answer(patchDetail, workspaceAnswer(8, u"New name"_s));
    QVERIFY(!form.dirty() && !isTold);
    QCOMPARE(f->program.readings, 1);
    // The other tab's form is of the same workspace, and its text is another.
    WorkspaceForm& company = *store->companyForm();
    company.set(u"opportunityValue"_s, u"2400"_s);
    save(company);
    QCOMPARE(f->api.last().request.ifMatch, std::optional<qint64>(8));
    f->api.answer(patchDetail, workspaceAnswer(9, u"New name"_s, true, 2400));
    QCOMPARE(lastToast(), u"Each opportunity now counts as $2,400"_s);
    QVERIFY(isTold);
    QCOMPARE(store->workspaceForm()->draft()->values().value(u"opportunityValue"_s).toString(), u"2400"_s);
  }

  void whoWasSlowerSeesTheLatestAndKeepsWhatTheyTyped() {
    openWorkspaceTab();
    WorkspaceForm& form = *store->workspaceForm();
    form.set(u"timeZone"_s, u"Europe/Lisbon"_s);
    save(form);
    f->api.expect(getDetail);
    f->api.answer(patchDetail, conflict, 409, {{"content-type", "application/problem+json"}});
    f->api.answer(getDetail, workspaceAnswer(5, u"Theirs"_s));
    QCOMPARE(form.problem(), u"Someone else changed this workspace. We loaded the latest, try again."_s);
    QCOMPARE(form.draft()->values().value(u"name"_s).toString(), u"Theirs"_s);
    QCOMPARE(form.draft()->values().value(u"timeZone"_s).toString(), u"Europe/Lisbon"_s);
    save(form);
    QCOMPARE(f->api.last().request.ifMatch, std::optional<qint64>(5));
    QCOMPARE(sentBody().keys(), QStringList{u"timeZone"_s});
    f->api.fail(patchDetail, {TransportFailure::unreachable, false});
    settle();
    QVERIFY(form.dirty() && !form.problem().isEmpty());
    QCOMPARE(store->workspace()->value()->timeZone, u"Europe/Berlin"_s);
  }

  void whatWasSavedInOneTabIsNobodyElsesInTheOther() {
    openWorkspaceTab(workspaceAnswer(7));
    WorkspaceForm &form = *store->workspaceForm(), &company = *store->companyForm();
    form.set(u"opportunityValue"_s, u"5"_s);
    company.set(u"opportunityValue"_s, u"7"_s);
    save(company);
    f->api.answer(patchDetail, workspaceAnswer(8, u"Acme"_s, true, 7));
    QCOMPARE(form.conflict(), QString());
    save(form);
    QCOMPARE(f->api.last().request.ifMatch, std::optional<qint64>(8));
    // Nobody sees the form, which says so to whoever comes back.
    f->api.expect(getDetail);
    f->api.answer(patchDetail, "{}", 500);
    QCOMPARE(lastToast(), u"Couldn’t save the settings of “Acme”"_s);
    QCOMPARE(f->toasts.toasts().last().detail, form.problem());
    QVERIFY(!form.problem().isEmpty() && form.dirty());
  }

  void theAccountAndTheSettingsAgree() {
    openWorkspaceTab(workspaceAnswer(7));
    QCOMPARE(f->program.readings, 0);
    be(u"admin"_s);
    QVERIFY2(store->workspace()->needsLoad(), "what may be done here is said by the workspace itself");
    f->api.expect(getDetail);
    store->refresh();
    f->api.answer(getDetail, workspaceAnswer(8, u"Renamed"_s));
    QVERIFY(f->program.readings > 0);
  }

  void sendsNothingThatCannotBe() {
    openWorkspaceTab();
    WorkspaceForm& form = *store->workspaceForm();
    for (const auto& [field, text] :
         {std::pair{u"name"_s, u"  "_s}, std::pair{u"timeZone"_s, u"Berlin"_s},
          std::pair{u"opportunityValue"_s, u"ten"_s}, std::pair{u"opportunityValue"_s, u"-1"_s}}) {
      form.set(field, text);
      form.save();
      QVERIFY2(!form.draft()->problems().value(field).toString().isEmpty(), qPrintable(field + text));
      form.discard();
    }
    be(u"member"_s);
    form.set(u"name"_s, u"Mine"_s);
    form.save();
    QVERIFY(!form.saving() && !store->canManage());
  }

  void deletesOnceWhatItNamed() {
    openWorkspaceTab();
    store->deleteWorkspace();
    store->deleteWorkspace();
    QVERIFY(f->overlays.title().contains(u"Acme"_s));
    QCOMPARE(f->overlays.typedWord(), u"DELETE"_s);
    QVERIFY(f->overlays.text().startsWith(
        u"Every campaign, lead, mailbox and message in it goes with it. Type DELETE to confirm."_s));
    f->api.expect(deletion);
    confirm();
    QVERIFY2(!f->overlays.asking(), "pressed twice, asked once");
    QCOMPARE(sentBody(), (QJsonObject{{u"confirm"_s, u"DELETE"_s}}));
    QVERIFY(!f->api.last().request.ifMatch);
    QVERIFY(!store->canDelete());
    // Whoever has left the page hears of it all the same.
    store.reset();
    f->api.answer(deletion, {}, 204);
    QCOMPARE(f->program.deleted, QStringList{u"acme"_s});
  }

  void keepsTheWorkspaceUnlessItIsSureThatItIsGone() {
    openWorkspaceTab();
    store->deleteWorkspace();
    confirm(false);
    QVERIFY(store->canDelete());
    store->deleteWorkspace();
    f->api.expect(deletion);
    confirm();
    f->api.fail(deletion, TransportFailure::timedOut);
    settle();
    QVERIFY(f->program.deleted.isEmpty() && store->canDelete());
    QCOMPARE(f->program.readings, 1);
    QCOMPARE(lastToast(), u"Couldn’t delete the workspace."_s);
    f->api.expect(getDetail);
    store->refresh();
    f->api.answer(getDetail, workspaceAnswer(2, u"Acme"_s, false));
    QVERIFY(!store->canDelete());
  }

  void membersGetOtherRolesAndLeave() {
    openMembersTab();
    MembersStore& members = *store->members();
    QCOMPARE(members.rows()->records()[1].lastSignIn, u"Never"_s);
    QCOMPARE(members.rows()->records()[2].role, u"steward"_s);
    QVERIFY(members.rows()->records()[0].isYou && members.menu(u"u1"_s).isEmpty());

    f->api.expect(u"PATCH /members/u2"_s);
    members.changeRole(u"u2"_s, u"admin"_s);
    members.changeRole(u"u2"_s, u"viewer"_s);
    QCOMPARE(sentBody(), (QJsonObject{{u"role"_s, u"admin"_s}}));
    f->api.answer(u"PATCH /members/u2"_s, member(u"u2"_s, u"admin"_s));
    QCOMPARE(members.roleOf(u"u2"_s), u"admin"_s);
    // They have it already.
    members.changeRole(u"u2"_s, u"admin"_s);

    QCOMPARE(members.menu(u"u3"_s).last().title, u"Remove N u3"_s);
    QVERIFY(members.act(u"remove"_s, u"u3"_s));
    f->api.expect(u"DELETE /members/u3"_s);
    confirm();
    f->api.fail(u"DELETE /members/u3"_s, {TransportFailure::unreachable, false});
    settle();
    QCOMPARE(members.rows()->count(), 3);
    members.remove(u"u3"_s);
    f->api.expect(u"DELETE /members/u3"_s);
    confirm();
    f->api.answer(u"DELETE /members/u3"_s, {}, 204);
    QCOMPARE(members.rows()->count(), 2);

    be(u"member"_s);
    QVERIFY(members.menu(u"u2"_s).isEmpty());
    QVERIFY(!store->act(u"new"_s));
    QCOMPARE(lastToast(), u"Only admins can invite teammates."_s);
  }

  void inviteAddresses_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("sent");
    QTest::newRow("trimmed, as typed") << u" Ana@Acme.example \n"_s << u"Ana@Acme.example"_s;
    QTest::newRow("shortest") << u"a@b.c"_s << u"a@b.c"_s;
    QTest::newRow("no dot behind the at") << u"a.b@c"_s << QString();
    QTest::newRow("nothing behind it") << u"a@"_s << QString();
    QTest::newRow("a blank inside") << u"a b@c.d"_s << QString();
  }
  void inviteAddresses() {
    QFETCH(QString, typed);
    QFETCH(QString, sent);
    openMembersTab();
    InviteForm& form = *store->invites()->form();
    QVERIFY(store->act(u"new"_s));
    QVERIFY(form.shown());
    form.set(u"email"_s, typed);
    form.set(u"role"_s, u"viewer"_s);
    if (!sent.isEmpty()) f->api.expect(u"POST /invites"_s);
    form.submit();
    QCOMPARE(form.emailProblem(), sent.isEmpty() ? u"Enter a full email address."_s : QString());
    if (sent.isEmpty()) return;
    QCOMPARE(sentBody(), (QJsonObject{{u"email"_s, sent}, {u"role"_s, u"viewer"_s}}));
    f->api.expect(getInvites);
    f->api.answer(u"POST /invites"_s, invite(u"i2"_s, sent));
    QVERIFY(!form.shown());
    QCOMPARE(lastToast(), u"Invitation sent to "_s + sent);
    f->api.answer(getInvites, items({}));
    QCOMPARE(store->invites()->list()->stateName(), ResourceBase::State::Empty);
  }

  void aRefusedInviteStaysInItsDialogAndOneThatWaitsIsRevoked() {
    openMembersTab();
    InviteForm& form = *store->invites()->form();
    store->invite();
    form.set(u"email"_s, u"a@b.c"_s);
    f->api.expect(u"POST /invites"_s);
    form.submit();
    f->api.answer(u"POST /invites"_s, object({{u"title"_s, u"Already a member"_s}}), 409,
                  {{"content-type", "application/problem+json"}});
    QVERIFY(form.shown() && !form.busy());
    QCOMPARE(form.error(), u"Already a member"_s);

    f->api.expect(u"DELETE /invites/i1"_s);
    store->invites()->revoke(u"i1"_s);
    store->invites()->revoke(u"i1"_s);
    f->api.answer(u"DELETE /invites/i1"_s, {}, 204);
    QCOMPARE(store->invites()->rows()->count(), 0);
  }

  void theBlocklistsSwitchGoesBackWhenItIsRefused() {
    openWorkspaceTab(workspaceAnswer(3));
    store->setTab(u"blocklist"_s);
    f->api.expect(patchDetail);
    store->setUnsubscribesToBlocklist(true);
    QCOMPARE(sentBody(), (QJsonObject{{u"unsubscribesToBlocklist"_s, true}}));
    QCOMPARE(f->api.last().request.ifMatch, std::optional<qint64>(3));
    f->api.expect(getDetail);
    f->api.answer(patchDetail, conflict, 412, {{"content-type", "application/problem+json"}});
    QCOMPARE(lastToast(), u"Someone else changed this workspace. We loaded the latest, try again."_s);
    f->api.answer(getDetail, workspaceAnswer(4));
    QVERIFY(!store->unsubscribesToBlocklist() && !store->savingBlocklist());
  }

  void eachTabReadsWhatItShowsAndNoMore() {
    store->ensureLoaded();
    QVERIFY(f->api.sent().empty());
    for (const auto& tab :
         {u"notifications"_s, u"integrations"_s, u"mcp"_s, u"features"_s, u"migration"_s, u"clients"_s})
      store->setTab(tab);
    QVERIFY(f->api.sent().empty());
    store->setTab(u"ai"_s);
    QCOMPARE(f->navigator.tab, std::optional(SettingsTab::ai));
    QCOMPARE(store->tabName(), u"clients"_s);
    f->program.off = {u"rampup"_s};
    for (const Choice& feature : store->features())
      QCOMPARE(feature.detail, feature.key == "rampup"_L1 ? u"Off"_s : u"On"_s);
    store->setPositiveReplies(false);
    QVERIFY(!f->preferences.tellsOfReplies && f->preferences.tellsOfAccounts);
  }

  void countsTagsByNameWhereverTheyAreCarried() {
    const auto tags = u"GET /tags"_s, campaigns = u"GET /campaigns"_s, mailboxes = u"GET /mailboxes"_s;
    f->api.expect(tags);
    store->setTab(u"tags"_s);
    f->api.expect(campaigns);
    f->api.answer(tags,
                  items({object({{u"key"_s, u"t1"_s}, {u"name"_s, u"Fair"_s}}), object({{u"key"_s, u"idle"_s}})}));
    f->api.expect(mailboxes);
    f->api.answer(campaigns, items({campaign(u"c1"_s), campaign(u"c2"_s)}));
    f->api.answer(mailboxes, object({{u"items"_s, QJsonArray()},
                                     {u"tags"_s, QJsonArray{QJsonObject{{u"tag"_s, u"Fair"_s}, {u"n"_s, 3}},
                                                            QJsonObject{{u"tag"_s, u"warm"_s}, {u"n"_s, 1}}}}}));
    QStringList facts;
    for (const Choice& fact : store->lists()->tagFacts()) facts.append(fact.label + u": "_s + fact.detail);
    QCOMPARE(facts, (QStringList{u"Fair: 2 campaigns · 3 accounts"_s, u"idle: 0 campaigns · 0 accounts"_s,
                                 u"warm: 0 campaigns · 1 account"_s}));
    // Whoever changed a campaign meanwhile, by whatever page, finds them counted anew.
    store->ensureLoaded();
    Campaign changed;
    changed.id = u"c1"_s;
    f->context->changes().publish(changed, f->context->changes().stamp(), true);
    f->api.expect(tags);
    store->ensureLoaded();
  }
};

QTEST_GUILESS_MAIN(SettingsTest)
#include "settings_test.moc"
