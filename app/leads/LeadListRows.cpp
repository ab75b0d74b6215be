#include "app/leads/LeadListRows.h"

#include "app/base/cellText.h"
#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv {

ORV_DEFINE_ROW(LeadListRow)

namespace {

/// The words of a column where it sorts by words; the column of the list has their names.
QString wordsOf(const LeadListRow& row, bool isMaker) {
  return isMaker ? row.record().createdBy.value_or(QString()) : row.record().name;
}

std::optional<qint64> figureOf(const LeadListRow& row, const QString& column) {
  if (column == "leads"_L1) return row.record().leadCount;
  const auto& at = column == "updated"_L1 ? row.prepared().updated : row.prepared().archived;
  return at ? std::optional(at->toMSecsSinceEpoch()) : std::nullopt;
}

}  // namespace

LeadListFacts::LeadListFacts(const LeadList& list)
    : updated(parsePlatformDate(list.updatedAt ? list.updatedAt : list.createdAt)),
      archived(parsePlatformDate(list.archivedAt)) {}

bool LeadListRowsModel::isJustNow(const LeadListRow& row) const {
  const auto& at = row.prepared().updated;
  return m_clock && at && at->msecsTo(m_clock->now()) < qint64(std::chrono::milliseconds(1min).count());
}

QString LeadListRowsModel::when(const LeadListRow& row) const {
  const auto& at = row.prepared().updated;
  if (!at || !m_clock) return noValue;
  if (isJustNow(row)) return u"Now"_s;
  const QDateTime local = at->toLocalTime();
  const qint64 daysAgo = local.date().daysTo(m_clock->now().toLocalTime().date());
  if (daysAgo == 0) return u"Today, "_s + local.toString(u"HH:mm"_s);
  return daysAgo == 1 ? u"Yesterday"_s : Format::shortDate(local.date());
}

const LeadListRowsModel::Cells& LeadListRowsModel::cells() {
  static const Cells cells{
      {"name", [](auto&, auto& row) -> QVariant { return row.record().name; }},
      {"numberText",
       [](auto&, auto& row) -> QVariant {
         return row.record().number ? u'#' + QString::number(*row.record().number) : QString();
       }},
      {"description", [](auto&, auto& row) -> QVariant { return row.record().description.value_or(QString()); }},
      {"leadsText", [](auto&, auto& row) -> QVariant { return Format::grouped(row.record().leadCount); }},
      {"makerText", [](auto&, auto& row) -> QVariant { return row.record().createdBy.value_or(noValue); }},
      {"updatedText", [](auto& model, auto& row) -> QVariant { return model.when(row); }},
      {"isRecent", [](auto& model, auto& row) -> QVariant { return model.isJustNow(row); }},
      {"deletedText", [](auto&, auto& row) -> QVariant { return shortDay(row.prepared().archived); }},
      {"goneText", [](auto&, auto& row) -> QVariant { return shortDay(row.prepared().archived, archiveDays); }},
  };
  return cells;
}

std::function<bool(const LeadListRow&, const LeadListRow&)> leadListOrder(const std::optional<OrvSort>& sort) {
  if (!sort) return {};
  const QString column = sort->key;
  const bool descending = sort->descending;
  if (column == "list"_L1 || column == "maker"_L1)
    return [isMaker = column == "maker"_L1, descending, collator = nameCollator()](const LeadListRow& a,
                                                                                   const LeadListRow& b) {
      const int order = collator.compare(wordsOf(a, isMaker), wordsOf(b, isMaker));
      return descending ? order > 0 : order < 0;
    };
  return [column, descending](const LeadListRow& a, const LeadListRow& b) {
    const auto left = figureOf(a, column), right = figureOf(b, column);
    if (!left || !right) return left.has_value() && !right.has_value();
    return descending ? *right < *left : *left < *right;
  };
}

}  // namespace orv
