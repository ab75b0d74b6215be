#include "desktop/services/SchemeRegistration.h"

#include "desktop/services/Programs.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

void findSchemeHandler(const QString& scheme, QObject* context, std::function<void(const QString&)> report) {
  runProgram(u"xdg-mime"_s, {u"query"_s, u"default"_s, u"x-scheme-handler/"_s + scheme}, context,
             [report](const QByteArray& printed) { report(QString::fromUtf8(printed).trimmed()); });
}

}  // namespace orv
