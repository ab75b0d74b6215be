#include <QDir>
#include <QDirIterator>
#include <QLoggingCategory>
#include <QMetaProperty>
#include <QTemporaryDir>
#include <QTest>

#include "desktop/services/LogFile.h"
#include "desktop/services/SettingsPreferences.h"
#include "tests/service/Client.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// Every line as it was logged, before the log file's own redaction.
QStringList* rawLines = nullptr;
QtMessageHandler fileHandler = nullptr;

void recordRaw(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  rawLines->append(message);
  fileHandler(type, context, message);
}

/// The text of every property of the object, and of the objects its properties lead to: what QML can read.
void collectProperties(const QObject* object, QStringList& texts, QSet<const QObject*>& seen) {
  if (!object || seen.contains(object)) return;
  seen.insert(object);
  for (int i = 0; i < object->metaObject()->propertyCount(); ++i) {
    const QVariant value = object->metaObject()->property(i).read(object);
    if (value.canConvert<QObject*>()) collectProperties(value.value<QObject*>(), texts, seen);
    QDebug(&texts.emplaceBack()).nospace() << value;
  }
  if (const auto* model = qobject_cast<const QAbstractItemModel*>(object)) {
    for (int row = 0; row < model->rowCount(); ++row)
      for (const int role : model->roleNames().keys())
        QDebug(&texts.emplaceBack()).nospace() << model->index(row, 0).data(role);
  }
}

}  // namespace

/// A token, a password and a code through a whole visit; then they are looked for everywhere they must not be.
class SecretsTest : public QObject {
  Q_OBJECT

  QStringList secrets, lines, seenByQml;

  void look(Client& client, QStringList& texts) {
    QSet<const QObject*> seen;
    collectProperties(&client.app(), texts, seen);
    QCOMPARE(seen.contains(client.app().signIn()), true);
    QCOMPARE(seen.contains(client.app().session()), client.isSignedIn());
  }
  void visit(Client& client, ServiceProcess& service) {
    client.enterEmail(marensAddress);
    QTRY_COMPARE(client.signIn().step(), SignInModel::Step::password);
    secrets = {u"canary-wrong-password"_s, marensPassword};
    for (const QString& password : std::as_const(secrets)) {
      client.signIn().setPassword(password);
      QStringList whileTyped;
      look(client, whileTyped);
      QVERIFY2(whileTyped.join(u'\n').contains(password), "The search does not find even what is there");
      client.signIn().submitPassword();
      QTRY_VERIFY(!client.signIn().busy());
    }
    QTRY_VERIFY(client.isSignedIn());
    secrets.append(client.token());
    client.showCampaigns();
    look(client, seenByQml);
    const QString id = client.campaigns().list()->value()->items.first().id;
    client.campaigns().copyLink(id);
    client.campaigns().resume(id);
    QTRY_VERIFY(client.campaigns().busy().ids().isEmpty());
    client.app().signOut();
    QTRY_VERIFY(desk.keychain.items.empty());
    look(client, seenByQml);

    client.enterEmail(tomasAddress);
    QTRY_COMPARE(client.signIn().step(), SignInModel::Step::code);
    secrets.append(service.codeFor(tomasAddress));
    client.signIn().setCode(secrets.last());
    client.signIn().submitCode();
    QTRY_VERIFY(client.isSignedIn());
    secrets.append(client.token());
    client.showCampaigns();
    service.kill();
    client.campaigns().refresh();
    QTRY_VERIFY(!client.campaigns().list()->refreshing());
    look(client, seenByQml);
  }
  Desk desk;

 private Q_SLOTS:
  void stayWhereTheyBelong() {
    QTemporaryDir folder;
    const QString settings = folder.filePath(u"settings.ini"_s);
    ServiceProcess service;
    QStringList told;
    rawLines = &lines;
    QLoggingCategory::setFilterRules(u"orvella.*=true"_s);
    {
      LogFile log(folder.filePath(u"log"_s));
      fileHandler = qInstallMessageHandler(recordRaw);
      SettingsPreferences preferences(settings);
      Client client(desk, service.url(), preferences);
      preferences.setTheme(u"dark"_s);
      visit(client, service);
      if (QTest::currentTestFailed()) return;
      // The store keeps secrets; that the search would find one is seen there.
      QVERIFY(desk.keychain.items[u"session"_s].contains(secrets.last().toUtf8()));
      told = client.told();
    }
    qInstallMessageHandler(nullptr);
    QVERIFY2(!lines.isEmpty() && !told.isEmpty(), "There is nothing to search");

    QByteArray files;
    QDirIterator all(folder.path(), QDir::Files, QDirIterator::Subdirectories);
    int count = 0;
    while (all.hasNext()) {
      QFile file(all.next());
      QVERIFY(file.open(QIODevice::ReadOnly));
      files += file.readAll();
      ++count;
    }
    QCOMPARE(count, 2);
    QFile own(u"/proc/self/cmdline"_s);
    QVERIFY(own.open(QIODevice::ReadOnly));
    const QString arguments = QString::fromUtf8(own.readAll()) + service.arguments().join(u' ');

    for (const QString& secret : std::as_const(secrets)) {
      QVERIFY(secret.size() >= 6);
      QVERIFY2(!lines.join(u'\n').contains(secret), "logged");
      QVERIFY2(!files.contains(secret.toUtf8()), "on the disk");
      QVERIFY2(!told.join(u'\n').contains(secret), "in a toast");
      QVERIFY2(!desk.clipboard.text.contains(secret), "on the clipboard");
      QVERIFY2(!arguments.contains(secret), "in a process argument");
      QVERIFY2(!seenByQml.join(u'\n').contains(secret), "in a property");
    }
  }
};

QTEST_GUILESS_MAIN(SecretsTest)
#include "secrets_test.moc"
