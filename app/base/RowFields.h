#pragma once

#include <boost/describe/members.hpp>
#include <boost/mp11/algorithm.hpp>

#include "kit/api/RecordFields.h"

/// What a RecordModel needs of a described row of this program's own, which no answer brings and so has no coders.
/// Declared beside the row, defined in the .cpp.
#define ORV_DECLARE_ROW(Row)                  \
  template <>                                 \
  const QList<QByteArray>& fieldNames<Row>(); \
  template <>                                 \
  QVariant fieldVariant<Row>(const Row& row, int field);

#define ORV_DEFINE_ROW(Row)                                      \
  template <>                                                    \
  const QList<QByteArray>& fieldNames<Row>() {                   \
    static const QList<QByteArray> names = rowFieldNames<Row>(); \
    return names;                                                \
  }                                                              \
  template <>                                                    \
  QVariant fieldVariant<Row>(const Row& row, int field) {        \
    return rowField(row, field);                                 \
  }

namespace orv {

template <class Row>
using RowMembers = boost::describe::describe_members<Row, boost::describe::mod_public>;

template <class Row>
QList<QByteArray> rowFieldNames() {
  QList<QByteArray> names;
  boost::mp11::mp_for_each<RowMembers<Row>>([&](auto member) { names.append(member.name); });
  return names;
}

template <class Row>
QVariant rowField(const Row& row, int field) {
  return boost::mp11::mp_with_index<boost::mp11::mp_size<RowMembers<Row>>::value>(size_t(field), [&](auto index) {
    return QVariant::fromValue(row.*boost::mp11::mp_at<RowMembers<Row>, decltype(index)>::pointer);
  });
}

}  // namespace orv
