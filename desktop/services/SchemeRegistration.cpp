#include "desktop/services/SchemeRegistration.h"

#include <QProcess>

using namespace Qt::Literals::StringLiterals;

namespace orv {

void findSchemeHandler(const QString& scheme, QObject* context, std::function<void(const QString&)> report) {
  auto* const process = new QProcess(context);
  QObject::connect(process, &QProcess::finished, process, [process, report] {
    report(QString::fromUtf8(process->readAllStandardOutput()).trimmed());
    process->deleteLater();
  });
  QObject::connect(process, &QProcess::errorOccurred, process, [process, report](QProcess::ProcessError error) {
    if (error != QProcess::FailedToStart) return;
    report({});
    process->deleteLater();
  });
  process->start(u"xdg-mime"_s, {u"query"_s, u"default"_s, u"x-scheme-handler/"_s + scheme}, QIODevice::ReadOnly);
}

}  // namespace orv
