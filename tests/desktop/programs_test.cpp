#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <cerrno>
#include <csignal>

#include "desktop/ActivationToken.h"
#include "desktop/services/BrowserService.h"
#include "desktop/services/Programs.h"
#include "desktop/services/SchemeRegistration.h"
#include "desktop/services/SettingsPreferences.h"

using namespace orv;
using namespace Qt::Literals::StringLiterals;

class ProgramsTest : public QObject {
  Q_OBJECT

  QTemporaryDir m_folder;
  QByteArray m_path;

  /// Puts a program in the place of the desktop's own.
  void provide(const QString& name, const QByteArray& script) {
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write("#!/bin/bash\n" + script) < 0) qFatal("no program");
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }
  QByteArray contents(const QString& name) const {
    QFile file(m_folder.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

 private Q_SLOTS:
  void initTestCase() {
    ::umask(027);
    ::signal(SIGPIPE, SIG_DFL);
    const rlimit core{4096, RLIM_INFINITY};
    ::setrlimit(RLIMIT_CORE, &core);
    m_path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(m_folder.path()) + ':' + m_path);
    qputenv("XDG_ACTIVATION_TOKEN", "for this program");
    qputenv("QT_SCALE_FACTOR", "1.5");
    qputenv("SSLKEYLOGFILE", "/dev/null");
    keepToOneself();
    qputenv("QT_SCALE_FACTOR", "2.25");
    qunsetenv("SSLKEYLOGFILE");
  }
  void cleanupTestCase() { qputenv("PATH", m_path); }

  void aReaderThatGoesEndsNothing() {
    int ends[2];
    QCOMPARE(::pipe(ends), 0);
    ::close(ends[0]);
    QCOMPARE(::write(ends[1], "x", 1), -1);
    QCOMPARE(errno, EPIPE);
    ::close(ends[1]);
  }

  void whatIsWrittenIsThePersonsAlone() {
    const QString path = m_folder.filePath(u"settings.conf"_s);
    { SettingsPreferences(path).setSidebarRail(true); }
    QVERIFY(QDir(m_folder.path()).mkdir(u"folder"_s));
    constexpr auto others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    for (const QString& each : {path, m_folder.filePath(u"folder"_s)})
      QCOMPARE(QFile::permissions(each) & others, QFile::Permissions());
  }

  void programsAreStrangers() {
    provide(u"xdg-open"_s, R"sh(cd "$(dirname "$0")"
{
  echo "$@"
  umask
  ulimit -c
  grep SigIgn /proc/$$/status
  ls /proc/$$/fd
  echo "token $XDG_ACTIVATION_TOKEN"
  echo "size $QT_SCALE_FACTOR keys $SSLKEYLOGFILE"
  read -r stat </proc/$$/stat
  set -- ${stat##*) }
  [ "$4" = $$ ] && echo alone
} >told.new
mv told.new told
)sh");
    // As a library opens them.
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const int file = ::open("/etc/passwd", O_RDONLY);
    QVERIFY(file > socket && socket > 2);
    QVERIFY(BrowserService().open(QUrl(u"https://app.orvella.example/a b?c=$(id)"_s)));
    QTRY_VERIFY(!contents(u"told"_s).isEmpty());
    const auto lines = contents(u"told"_s).split('\n');
    QCOMPARE(lines.value(0), "https://app.orvella.example/a%20b?c=$(id)"_ba);
    QCOMPARE(lines.value(1), "0027"_ba);
    QCOMPARE(lines.value(2), "4"_ba);
    QVERIFY(lines.value(3).startsWith("SigIgn:"));
    const quint64 ignored = lines.value(3).mid(7).trimmed().toULongLong(nullptr, 16);
    QVERIFY2(!(ignored & (1ULL << (SIGPIPE - 1))), lines.value(3).constData());
    for (const int open : {socket, file}) QVERIFY(!lines.contains(QByteArray::number(open)));
    QVERIFY(lines.contains("token ") && lines.contains("alone"));
    QVERIFY2(lines.contains("size 1.5 keys /dev/null"), "as this one was started, whatever it has made of them since");
    ::close(socket);
    ::close(file);
  }

  void whatAProgramPrintsIsReported() {
    provide(u"xdg-mime"_s, "echo \" $3.desktop\"\n");
    QStringList reports;
    const auto report = [&reports](const QString& entry) { reports.append(entry); };
    findSchemeHandler(u"com.orvella.desktop"_s, this, report);
    QTRY_COMPARE(reports, QStringList{u"x-scheme-handler/com.orvella.desktop.desktop"_s});
    qputenv("PATH", "/nowhere");
    findSchemeHandler(u"x"_s, this, report);
    QTRY_COMPARE(reports.size(), 2);
    QVERIFY(!openByDesktop(u"https://app.orvella.example"_s));
    qputenv("PATH", QFile::encodeName(m_folder.path()) + ':' + m_path);
  }

  void theActivationTokenStaysWhereItIs() {
    setActivationToken("first");
    const char* const place = std::getenv("XDG_ACTIVATION_TOKEN");
    QCOMPARE(QByteArray(place), "first"_ba);
    setActivationToken("a longer one than before");
    QCOMPARE(std::getenv("XDG_ACTIVATION_TOKEN"), place);
    QCOMPARE(QByteArray(place), "a longer one than before"_ba);
    setActivationToken(QByteArray(256, 'x'));
    QCOMPARE(QByteArray(place).size(), 256);
    setActivationToken(QByteArray(257, 'x'));
    QCOMPARE(QByteArray(place), QByteArray());
    // The toolkit's plug-in takes it out when it has used it.
    [[maybe_unused]] char** const list = environ;
    for (int i = 0; i < 100; ++i) {
      setActivationToken("again");
      ::unsetenv("XDG_ACTIVATION_TOKEN");
      setActivationToken({});
      QCOMPARE(std::getenv("XDG_ACTIVATION_TOKEN"), place);
    }
#if !__has_feature(address_sanitizer)  // Whose memory moves whenever it is asked for again.
    QCOMPARE(environ, list);
#endif
  }
};

QTEST_GUILESS_MAIN(ProgramsTest)
#include "programs_test.moc"
