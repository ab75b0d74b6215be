#include "app/shell/signInTexts.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

QString wrongCodeLine(const Problem& problem) {
  QString line = u"That code isn’t right."_s;
  if (!problem.triesLeft) return line;
  const qint64 left = *problem.triesLeft;
  return line + u' ' + QString::number(left) + (left == 1 ? " try"_L1 : " tries"_L1) + " left."_L1;
}

}  // namespace

bool SignInTexts::isCompleteCode(const QString& code) {
  static const QRegularExpression pattern(QRegularExpression::anchoredPattern(u"[0-9]{6}"_s));
  return pattern.match(code).hasMatch();
}

QString SignInTexts::errorLine(const APIError& error) {
  if (error.is(APIError::Kind::rateLimited)) return u"Too many attempts. Wait a few minutes and try again."_s;
  const QString code = error.code().value_or(QString());
  if (code == "bad_password"_L1) return u"That password isn’t right."_s;
  if (code == "wrong_code"_L1) return wrongCodeLine(error.problem());
  if (code == "code_expired"_L1) return u"That code has expired. Ask for a new one."_s;
  if (code == "too_soon"_L1) return u"A code was sent a moment ago. Check your inbox, or ask again in a moment."_s;
  return error.message();
}

}  // namespace orv
