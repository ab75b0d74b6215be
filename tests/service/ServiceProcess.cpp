#include "tests/service/ServiceProcess.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace orv::test {

ServiceProcess::ServiceProcess(const QStringList& options) {
  m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  m_process.start(QStringLiteral(ORVELLA_SERVICE), QStringList{u"--port"_s, u"0"_s} + options);
  m_url = QUrl(waitFor(u"Listening on "_s).section(u' ', 0, 0));
  // The last line of its greeting, so that no test mistakes it for something that happened.
  waitFor(u"code that is printed here"_s);
}

ServiceProcess::~ServiceProcess() { kill(); }

const QString& ServiceProcess::output() {
  m_output += QString::fromUtf8(m_process.readAllStandardOutput());
  return m_output;
}

QString ServiceProcess::waitFor(const QString& text) {
  const auto lineEnd = [&] {
    const auto at = output().lastIndexOf(text);
    return at < 0 ? qsizetype(-1) : m_output.indexOf(u'\n', at);
  };
  if (!QTest::qWaitFor([&] { return lineEnd() >= 0; }, 20000))
    qFatal("The service never printed: %s", qPrintable(text));
  const auto from = m_output.lastIndexOf(text) + text.size();
  return m_output.mid(from, lineEnd() - from);
}

void ServiceProcess::kill() {
  if (m_process.state() == QProcess::NotRunning) return;
  m_process.kill();
  m_process.waitForFinished();
}

}  // namespace orv::test
