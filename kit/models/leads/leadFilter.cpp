#include "kit/models/leads/leadFilter.h"

#include <boost/describe/members.hpp>
#include <boost/mp11/algorithm.hpp>

#include "kit/api/recordCoders.h"
#include "kit/models/leads/leadSearch.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_RECORD_CODERS(LeadFilterBody)

namespace {

void fill(std::optional<QString>& field, const LeadSearch& search, const QString& key) {
  if (search.has(key)) field = search.value(key);
}

void fill(std::optional<QList<QString>>& field, const LeadSearch& search, const QString& key) {
  if (const QStringList pieces = search.pieces(key); !pieces.isEmpty()) field = pieces;
}

void fill(std::optional<QList<qint64>>& field, const LeadSearch& search, const QString& key) {
  QList<qint64> numbers;
  for (const QString& piece : search.pieces(key)) {
    bool isNumber = false;
    const qint64 number = piece.toLongLong(&isNumber);
    if (isNumber) numbers.append(number);
  }
  if (!numbers.isEmpty()) field = numbers;
}

void fill(std::optional<qint64>& field, const LeadSearch& search, const QString& key) {
  bool isNumber = false;
  const qint64 number = search.value(key).toLongLong(&isNumber);
  if (isNumber) field = number;
}

void fill(std::optional<bool>& field, const LeadSearch& search, const QString& key) {
  if (search.has(key)) field = true;
}

}  // namespace

LeadFilterBody filterBody(const LeadSearch& search) {
  LeadFilterBody body;
  boost::mp11::mp_for_each<boost::describe::describe_members<LeadFilterBody, boost::describe::mod_public>>(
      [&](auto member) { fill(body.*member.pointer, search, QString::fromLatin1(member.name)); });
  if (!body.q || body.qin == "any"_L1) body.qin.reset();
  body.only = search.only;
  return body;
}

}  // namespace orv
