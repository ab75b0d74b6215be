#include <QUrl>
#include <algorithm>

#include "app/base/shownName.h"
#include "app/inbox/addresses.h"
#include "app/inbox/messageText.h"
#include "tests/fuzz/fuzz.h"

using namespace orv;

namespace {

QString withoutBlanks(QString text) {
  text.removeIf([](QChar c) { return c.isSpace(); });
  return text;
}

void fold(const QString& body) {
  QString told;
  for (const TextSegment& segment : foldQuotes(body)) {
    fuzz::require(!segment.text.trimmed().isEmpty(), "a segment says something");
    told += segment.text;
  }
  fuzz::require(withoutBlanks(told) == withoutBlanks(body), "folded or not, everything is there");
}

void cut(const QString& text, qsizetype most) {
  const QStringList pieces = inPieces(text, most);
  const auto isLong = [most](const QString& piece) { return piece.size() > most + most / 2; };
  fuzz::require(std::ranges::none_of(pieces, isLong), "no piece is long");
  fuzz::require(pieces.join(QString()).remove(u'\n') == QString(text).remove(u'\n'), "the pieces are the whole");
}

void open(const QString& text) {
  const QStringList links = linksIn(text);
  fuzz::require(links.size() <= 20, "nobody looks through more");
  for (const QString& link : links) {
    const QUrl url(link, QUrl::StrictMode);
    fuzz::require(url.isValid() && url.userInfo().isEmpty(), "nothing stands before the host");
    fuzz::require(
        QStringList{QStringLiteral("http"), QStringLiteral("https"), QStringLiteral("mailto")}.contains(url.scheme()),
        "only pages and addresses open");
    fuzz::require(shownAddress(link) == link, "what opens is what is shown");
  }
}

void split(const QString& typed) {
  const AddressList list = splitAddresses(typed);
  for (const QString& address : list.addresses) {
    fuzz::require(address.count(u'@') == 1 && address.section(u'@', 1).contains(u'.'), "mail can go there");
    fuzz::require(std::ranges::none_of(address, [](QChar c) { return c.isSpace(); }), "it is one address");
    fuzz::require(shownAddress(address) == address, "it goes where it seems to go");
  }
  const auto isPlain = [](const QString& address) {
    return std::ranges::none_of(address, [](QChar c) { return QStringLiteral("\",;<>").contains(c); });
  };
  if (std::ranges::all_of(list.addresses, isPlain))
    fuzz::require(splitAddresses(list.addresses.join(QStringLiteral(", "))).addresses == list.addresses,
                  "a list is read again as it was");
}

void show(const QString& name) {
  const QString once = shownName(name), address = shownAddress(name);
  fuzz::require(once.size() <= 200, "names are cut");
  fuzz::require(!once.contains(u'\n') && !once.contains(u'\r') && !once.contains(u'\u2028'), "a name is one line");
  fuzz::require(shownName(once) == once, "what is shown stays as it is");
  fuzz::require(shownAddress(address) == address, "so does an address");
}

}  // namespace

/// How long a piece is, in a byte, then what somebody wrote: a message, a list of addresses, a name.
int LLVMFuzzerTestOneInput(const unsigned char* bytes, size_t size) {
  fuzz::beQuiet();
  if (size == 0) return 0;
  const QString text = QString::fromUtf8(fuzz::input(bytes + 1, size - 1));
  fold(text);
  cut(text, 4 + bytes[0]);
  open(text);
  split(text);
  show(text);
  return 0;
}
