#include "app/inbox/addresses.h"

#include <QRegularExpression>
#include <QSet>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// A separator inside quotes belongs to a name: "Marsh, Ellen" <ellen@…>.
QStringList parts(const QString& text, QChar separator) {
  QStringList parts{QString()};
  bool isQuoted = false;
  for (const QChar c : text) {
    if (c == u'"') isQuoted = !isQuoted;
    const bool ends = c == u'\n' || c == u'\r' || (!isQuoted && c == separator);
    if (!ends)
      parts.last() += c;
    else
      parts.append(QString());
    if (c == u'\n') isQuoted = false;
  }
  return parts;
}

QString bare(const QString& part) {
  const QString text = part.trimmed();
  const qsizetype from = text.lastIndexOf(u'<');
  return from >= 0 && text.endsWith(u'>') ? text.mid(from + 1, text.size() - from - 2).trimmed() : text;
}

/// As sign-in takes one. Beyond the "@" a separator is one.
bool isReachable(const QString& address) {
  static const QRegularExpression pattern(QRegularExpression::anchoredPattern(uR"([^\s@]+@[^\s@,;]+\.[^\s@,;]+)"_s),
                                          QRegularExpression::UseUnicodePropertiesOption);
  return pattern.match(address).hasMatch() && shownAddress(address) == address;
}

/// Letters that nobody sees, and those that turn others around.
bool isTrick(char32_t letter) {
  // Blank letters of Hangul, which look like none at all.
  if (letter == 0x115f || letter == 0x1160 || letter == 0x3164 || letter == 0xffa0) return true;
  switch (QChar::category(letter)) {
    case QChar::Other_Format:
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
      return true;
    case QChar::Separator_Space:
      return letter != U' ';
    default:
      return (letter >= 0xfe00 && letter <= 0xfe0f) || letter == 0x34f;
  }
}

}  // namespace

AddressList splitAddresses(const QString& text) {
  AddressList list;
  QSet<QString> seen;
  const auto take = [&](const QString& address) {
    const QString folded = address.toCaseFolded();
    if (address.isEmpty() || seen.contains(folded)) return;
    seen.insert(folded);
    if (isReachable(address))
      list.addresses.append(address);
    else if (list.wrong.isEmpty())
      list.wrong = address;
  };
  for (const QString& part : parts(text, u',')) {
    const QString whole = bare(part);
    // A semicolon may belong to an address; where it does not, people mean a comma.
    if (isReachable(whole)) {
      take(whole);
      continue;
    }
    for (const QString& piece : parts(part, u';')) take(bare(piece));
  }
  return list;
}

QString shownAddress(const QString& address) {
  QString shown;
  shown.reserve(address.size());
  for (const char32_t letter : address.toUcs4()) {
    if (isTrick(letter))
      shown += QChar(QChar::ReplacementCharacter);
    else
      shown += QString::fromUcs4(&letter, 1);
  }
  return shown;
}

}  // namespace orv
