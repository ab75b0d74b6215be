#include "kit/session/KeptPlaces.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

KeptPlaces KeptPlaces::of(const APIEnvironment& environment, const QString& application, const QString& folder) {
  const auto other = environment.otherOrigin();
  if (!other) return {application, folder};
  return {application + u' ' + *other, folder + u'/' + QString::fromLatin1(QUrl::toPercentEncoding(*other))};
}

}  // namespace orv
