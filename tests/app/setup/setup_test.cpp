#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTemporaryDir>

#include "tests/app/setup/SetupFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

class SetupTest : public QObject {
  Q_OBJECT

  std::unique_ptr<SetupFixture> f;

 private Q_SLOTS:
  void init() { f = std::make_unique<SetupFixture>(); }
  void cleanup() { f.reset(); }

  /// Each case breaks one rule and all that come after it: the first that fails is told.
  void theFirstRuleThatFailsKeepsARunBack() {
    SetupFields fields = setupFieldsOf(someProject());
    bool hasPassword = true;
    QString newPassword = u"12345678"_s;
    const auto told = [&](RunAskedOn where = RunAskedOn::project) {
      const auto problem = runProblem(fields, hasPassword, newPassword, where);
      return problem ? problem->sentence : QString();
    };
    QCOMPARE(told(), QString());
    newPassword = u"1234567"_s;
    QCOMPARE(told(), u"Google needs 8 characters or more."_s);
    fields.user3 = u"mar..sh"_s;
    QCOMPARE(told(), u"An inbox username isn’t valid."_s);
    fields.lastName = u" "_s;
    QCOMPARE(told(), u"Type the first and last name."_s);
    fields.admin.clear();
    QCOMPARE(told(), u"Type the admin username."_s);
    hasPassword = false;
    QCOMPARE(told(), u"No admin password. Type it under Google Admin, then press Run."_s);
    QCOMPARE(told(RunAskedOn::list), u"No admin password. Type it on the project, then press Run."_s);
    fields.domains.clear();
    QCOMPARE(told(), u"Add at least one domain."_s);
  }

  void usernamesAndDomainsAreJudgedAtTheirEdges() {
    for (const QString& good : {u"a"_s, u"e.marsh"_s, u"a-b_c.9"_s, QString(64, u'a')})
      QVERIFY2(isSetupUsername(good), qPrintable(good));
    for (const QString& bad :
         {u""_s, u"a..b"_s, u"a."_s, u".a"_s, u"_a"_s, u"Ellen"_s, u"a@b"_s, u"a\n"_s, QString(65, u'a')})
      QVERIFY2(!isSetupUsername(bad), qPrintable(bad));
    const QString label(63, u'a'), longest = (label + u'.').repeated(3) + QString(57, u'b') + u".io"_s;
    QCOMPARE(longest.size(), 252);
    for (const QString& good : {u"a.io"_s, u"x-1.example.com"_s, longest})
      QVERIFY2(isSetupDomain(good), qPrintable(good));
    for (const QString& bad :
         {u"a"_s, u"-a.io"_s, u"a-.io"_s, u"a.i"_s, u"a.1o"_s, u"a..io"_s, label + u"a.io"_s, u"bb"_s + longest})
      QVERIFY2(!isSetupDomain(bad), qPrintable(bad));
  }

  void whatIsPastedFoldsToDomains() {
    const auto pasted = pastedDomains(
        u"Fleet.Example.com\r\nEllen <ellen@bay.example>, not-one; fleet.example.com\t"
        "info@www.quay.example.\n"_s);
    QCOMPARE(pasted.domains, (QStringList{u"fleet.example.com"_s, u"bay.example"_s, u"www.quay.example"_s}));
    QCOMPARE(pasted.others, (QStringList{u"Ellen"_s, u"not-one"_s}));
  }

  void aNewProjectIsTwoQuestions() {
    f->load({});
    f->store.beginCreate();
    NewProject& form = *f->store.newProject();
    QVERIFY(!form.canGoOn());
    form.setMode(u"existing"_s);
    form.goOn();
    QVERIFY(form.isNamed());
    form.setName(u" A "_s);
    form.goOn();
    QCOMPARE(form.error(), u"Keep it 2 to 80 characters"_s);
    form.setName(u" Ab "_s);
    const auto post = u"POST /inbox-setup/templates"_s;
    f->api.expect(post);
    form.goOn();
    QCOMPARE(f->sentBody(), (QJsonObject{{u"mode"_s, u"existing"_s}, {u"name"_s, u"Ab"_s}}));
    SetupProject made = someProject(u"sp9"_s);
    f->api.answer(post, encodeJSON(made), 201);
    QVERIFY(!form.shown());
    QCOMPARE(f->navigator.item, u"sp9"_s);
    QCOMPARE(f->store.rows()->rowCount(), 1);
    QCOMPARE(f->lastToast(), QString());
    // Closed while it is sent: nobody is led anywhere, and the end is told all the same.
    f->store.beginCreate();
    form.setMode(u"new"_s);
    form.goOn();
    form.setName(u"Harbour"_s);
    f->api.expect(post);
    form.goOn();
    form.cancel();
    made.id = u"sp10"_s;
    made.name = u"Harbour"_s;
    f->api.answer(post, encodeJSON(made), 201);
    QCOMPARE(f->lastToast(), u"Harbour created"_s);
    QCOMPARE(f->navigator.item, u"sp9"_s);
  }

  void deletingCanBeTakenBack() {
    f->load({someProject()});
    const auto del = u"DELETE /inbox-setup/templates/sp1"_s, restore = u"POST /inbox-setup/templates/sp1/restore"_s;
    f->api.expect(del);
    QVERIFY(f->store.act(u"delete"_s, u"sp1"_s));
    f->api.answer(del, {}, 204);
    QCOMPARE(f->lastToast(), u"Deleted “Spring domains”. It’s in Archived for 30 days."_s);
    QCOMPARE(f->store.rows()->rowCount(), 0);
    f->api.expect(restore);
    f->toasts.act(f->toasts.toasts().last().id);
    settle();
    f->api.answer(restore, encodeJSON(someProject()));
    QCOMPARE(f->lastToast(), u"Restored"_s);
    QCOMPARE(f->store.rows()->rowCount(), 1);
  }

  void theFormSendsWhatIsOtherAndItsVersion() {
    const auto page = f->open(someProject());
    SetupForm& form = *page->form();
    form.set(u"dailyLimit"_s, u"2001"_s);
    form.save();
    QCOMPARE(form.draft()->problems().value(u"dailyLimit"_s).toString(), u"Enter a number from 0 to 2000"_s);
    form.set(u"dailyLimit"_s, u"30"_s);
    form.set(u"user2"_s, u" e.marsh "_s);
    page->domains()->setTyped(u"x@c.example\nnot one"_s);
    QCOMPARE(page->domains()->typed(), u"not one"_s);
    QCOMPARE(page->domains()->problem(), u"Not a domain: not, one"_s);
    // Somebody else was faster, in a field that is typed in as well.
    SetupProject theirs = someProject();
    theirs.version = 5;
    theirs.signature = u"Theirs"_s;
    theirs.user2 = u"ellen2"_s;
    const auto readAgain = [&] {
      f->api.expect(f->one);
      page->project()->load();
      f->api.answer(f->one, encodeJSON(theirs));
    };
    readAgain();
    QVERIFY2(form.conflict().contains(u"meanwhile: Inbox 2."_s), qPrintable(form.conflict()));
    f->api.expect(f->patch);
    form.save();
    QCOMPARE(f->api.last().request.ifMatch, 4);
    QCOMPARE(f->sentBody(), (QJsonObject{{u"dailyLimit"_s, 30},
                                         {u"domains"_s, QJsonArray{u"a.example"_s, u"b.example"_s, u"c.example"_s}},
                                         {u"user2"_s, u"e.marsh"_s}}));
    // What was typed stays, and the project is read again although the list has no news of it.
    QSignalSpy refused(&form, &SetupForm::refused);
    f->api.expect(f->one);
    f->api.expect(f->list);
    f->api.answer(f->patch, R"({"title":"Changed","code":"version_conflict"})", 409);
    QCOMPARE(refused.size(), 1);
    f->api.answer(f->list, f->page({theirs}));
    f->api.answer(f->one, encodeJSON(theirs));
    QCOMPARE(form.problem(), u"This project changed since you opened it. Reload and try again."_s);
    QCOMPARE(form.draft()->values().value(u"user2"_s).toString(), u" e.marsh "_s);
    QCOMPARE(form.draft()->values().value(u"signature"_s).toString(), u"Theirs"_s);
    readAgain();
    QCOMPARE(form.problem(), QString());
    f->api.expect(f->patch);
    form.save();
    QCOMPARE(f->api.last().request.ifMatch, 5);
    f->api.answer(f->patch, encodeJSON(theirs));
  }

  /// Whatever a person does to a project elsewhere: what they type of it beside that goes through.
  void nobodyConflictsWithThemselves() {
    SetupProject project = someProject();
    project.archivedDomains = {{u"old.example"_s, u"Taken off"_s, project.updatedAt}};
    const auto page = f->open(project);
    SetupForm& form = *page->form();
    const auto isSaved = [&] {
      ++project.version;
      f->api.answer(f->patch, encodeJSON(project));
      QCOMPARE(form.problem(), QString());
      QVERIFY(!form.dirty());
    };

    const auto restore = u"POST /inbox-setup/templates/sp1/archived-domains/restore"_s;
    page->domains()->add(u"new.example"_s);
    f->api.expect(restore);
    page->domains()->restore(u"old.example"_s);
    project.domains.prepend(u"old.example"_s);
    project.archivedDomains.clear();
    ++project.version;
    f->api.answer(restore, encodeJSON(project));
    QCOMPARE(form.conflict(), QString());
    f->api.expect(f->patch);
    form.save();
    QCOMPARE(f->api.last().request.ifMatch, 5);
    project.domains = {u"a.example"_s, u"b.example"_s, u"new.example"_s, u"old.example"_s};
    QCOMPARE(f->sentBody().value("domains"_L1), QJsonValue(QJsonArray::fromStringList(project.domains)));
    isSaved();

    // A name that is given while a save is under way, in a dialog that was opened before it.
    QVERIFY(page->act(u"rename"_s));
    form.set(u"signature"_s, u"Mine"_s);
    f->api.expect(f->patch);
    form.save();
    page->rename()->setText(u"Harbour"_s);
    page->rename()->submit();
    project.signature = u"Mine"_s;
    f->api.expect(f->patch);
    isSaved();
    QCOMPARE(f->api.last().request.ifMatch, 7);
    project.name = u"Harbour"_s;
    isSaved();
    QCOMPARE(page->name(), u"Harbour"_s);
  }

  /// Nothing but a reading tells of the version that it makes.
  void takingThePhotoAwayIsNoConflict() {
    SetupProject project = someProject();
    project.hasPhoto = true;
    const auto photo = f->one + u"/photo"_s, del = u"DELETE /inbox-setup/templates/sp1/photo"_s;
    f->api.expect(photo);
    const auto page = f->open(project);
    f->api.answer(photo, "\x89PNG\r\n\x1a\n");
    f->api.expect(del);
    page->photo()->remove();
    page->form()->set(u"signature"_s, u"Mine"_s);
    page->form()->save();
    f->api.expect(f->one);
    f->api.answer(del, {}, 204);
    QCOMPARE(f->lastToast(), u"Photo removed"_s);
    project.hasPhoto = false;
    project.version = 5;
    f->api.expect(f->patch);
    f->api.answer(f->one, encodeJSON(project));
    QCOMPARE(f->api.last().request.ifMatch, 5);
    project.version = 6;
    f->api.answer(f->patch, encodeJSON(project));
    QVERIFY(!page->photo()->stored());
  }

  void secretsAreSentOnceAndKeptNowhere() {
    f->journal.open({u"u1"_s, u"https://a.example"_s});
    settle();
    SetupProject project = someProject();
    project.hasRecovery = true;
    const auto page = f->open(project);
    SetupForm& form = *page->form();
    QVERIFY(form.password()->stored() && !form.password()->isOpen());
    QVERIFY(form.newPassword()->isOpen());
    form.newPassword()->setText(u"short"_s);
    form.save();
    QCOMPARE(form.newPassword()->problem(), u"Google needs 8 characters or more."_s);
    form.newPassword()->setText(u"longer-secret"_s);
    // Somebody else has stored one: the field stays open over what is typed.
    project.hasNewPassword = true;
    f->api.expect(f->one);
    page->project()->load();
    f->api.answer(f->one, encodeJSON(project));
    QVERIFY(form.newPassword()->stored() && form.newPassword()->isOpen());
    form.recoveryEmail()->clear();
    form.set(u"signature"_s, u"typed"_s);
    f->pass(2s);
    QVERIFY(!f->journalFiles.files.isEmpty());
    for (const QByteArray& kept : f->journalFiles.files) QVERIFY(!kept.contains("longer-secret"));
    f->api.expect(f->patch);
    form.save();
    QVERIFY(f->api.last().request.secret);
    QCOMPARE(f->sentBody(), (QJsonObject{{u"newPassword"_s, u"longer-secret"_s},
                                         {u"recoveryEmail"_s, QJsonValue::Null},
                                         {u"signature"_s, u"typed"_s}}));
    project.hasRecovery = false;
    project.signature = u"typed"_s;
    project.version = 5;
    f->api.answer(f->patch, encodeJSON(project));
    QVERIFY(form.newPassword()->text().isEmpty() && !form.newPassword()->isOpen());
    QVERIFY(form.recoveryEmail()->isOpen() && !form.dirty());
  }

  void aDomainThatNoEnterHasEndedIsKept() {
    f->journal.open({u"u1"_s, u"https://a.example"_s});
    settle();
    auto page = f->open(someProject());
    page->domains()->setTyped(u"c.example"_s);
    QCOMPARE(page->unsavedWork(), QStringList{u"An inbox setup project that is not saved"_s});
    page.reset();
    page = std::make_unique<SetupProjectStore>(u"sp1"_s, f->store);
    f->api.expect(f->one);
    page->ensureLoaded();
    f->api.answer(f->one, encodeJSON(someProject()));
    QCOMPARE(page->domains()->typed(), u"c.example"_s);
    QVERIFY(!page->form()->recovery()->notice().isEmpty());
    page->form()->recovery()->discard();
    QCOMPARE(page->domains()->typed(), QString());
    QCOMPARE(page->unsavedWork(), QStringList());
    QVERIFY(f->journal.entries().isEmpty());
  }

  void aRunWaitsForWhatIsUnsaved() {
    SetupProject project = someProject();
    project.hasPassword = false;
    const auto page = f->open(project);
    page->setTab(u"run"_s);
    // Whoever is to show it is there by then.
    QStringList tabs;
    connect(page->form(), &SetupForm::refused, page.get(), [&] { tabs.append(page->tabName()); });
    QVERIFY(page->act(u"run"_s));
    QCOMPARE(page->form()->problem(), u"No admin password. Type it under Google Admin, then press Run."_s);
    QCOMPARE(tabs, QStringList{u"project"_s});
    page->form()->password()->setText(u"secret"_s);
    f->api.expect(f->patch);
    page->form()->save();
    // Pressed meanwhile, with a domain typed that no Enter has ended.
    page->domains()->setTyped(u"c.example"_s);
    QVERIFY(page->act(u"run"_s));
    QVERIFY(page->busy());
    const auto post = u"POST /inbox-setup/runs"_s;
    project.hasPassword = true;
    project.version = 5;
    f->api.expect(f->patch);
    f->api.answer(f->patch, encodeJSON(project));
    project.domains.append(u"c.example"_s);
    project.version = 6;
    f->api.expect(post);
    f->api.answer(f->patch, encodeJSON(project));
    const QJsonObject body = f->sentBody();
    QCOMPARE(body.value("domains"_L1).toArray().size(), 3);
    QCOMPARE(body.value("templateId"_L1).toString(), u"sp1"_s);
    QVERIFY(!body.contains("password"_L1) && !body.contains("user2"_L1));
    f->api.answer(post, encodeJSON(someRun({u"waiting"_s})), 201);
    QCOMPARE(f->lastToast(), u"Run started on 3 domains"_s);
    QCOMPARE(page->tabName(), u"run"_s);
  }

  void aPhotoIsJudgedByItsBytes() {
    const auto page = f->open(someProject());
    QTemporaryDir folder;
    const auto write = [&folder](const QByteArray& bytes) {
      QFile file(folder.filePath(u"face.png"_s));
      if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("no file");
      return file.fileName();
    };
    const auto put = u"PUT /inbox-setup/templates/sp1/photo"_s;
    const QByteArray jpeg("\xff\xd8\xff");
    f->filePanel.opened = write(jpeg + QByteArray(mostPhotoBytes - 2, 'x'));
    page->photo()->choose();
    QTRY_COMPARE(f->lastToast(), u"Use a photo of 1 MB or less"_s);
    f->filePanel.opened = write("GIF89a");
    page->photo()->choose();
    QTRY_COMPARE(f->lastToast(), u"Use a JPEG or PNG photo"_s);
    f->filePanel.opened = write(jpeg + QByteArray(mostPhotoBytes - 3, 'x'));
    f->api.expect(put);
    page->photo()->choose();
    QTRY_VERIFY(f->api.isWaiting(put));
    QCOMPARE(f->sentBody().value("type"_L1).toString(), u"image/jpeg"_s);
    SetupProject project = someProject();
    project.hasPhoto = true;
    project.version = 5;
    f->api.answer(put, encodeJSON(project));
    QCOMPARE(f->lastToast(), u"Photo saved"_s);
    QVERIFY(page->photo()->source().startsWith(u"data:image/jpeg"_s));
  }

  void credentialsAreForTheirReaderAlone() {
    f->load({someProject()});
    QVERIFY(!f->store.act(u"credentials"_s, u"sp1"_s));
    QCOMPARE(f->lastToast(), u"Nothing has run yet."_s);
    // The latest run has connected nothing; those before it may have.
    f = std::make_unique<SetupFixture>();
    const SetupRun failed = someRun({u"error"_s});
    SetupProject project = someProject();
    project.lastRun = countedRun(failed);
    const auto page = f->open(project, failed);
    QTemporaryDir folder;
    f->filePanel.folder = folder.path();
    const QString path = folder.filePath(u"Spring domains inboxes.csv"_s);
    QFile old(path);
    QVERIFY(old.open(QIODevice::WriteOnly) &&
            old.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther));
    old.close();
    const auto get = u"GET /inbox-setup/templates/sp1/credentials.csv"_s;
    f->api.expect(get);
    QVERIFY(page->act(u"credentials"_s));
    f->api.answer(get, "email,password\nellen@a.example,pw\n");
    QTRY_COMPARE(f->lastToast(), u"Saved Spring domains inboxes.csv"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), "email,password\nellen@a.example,pw\n");
    const auto others = QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther;
    QVERIFY(!(QFileInfo(path).permissions() & others));
    QVERIFY(f->revealer.revealed.isEmpty() && f->browser.opened.isEmpty());
  }
};

QTEST_GUILESS_MAIN(SetupTest)
#include "setup_test.moc"
