#pragma once

#include <QCollator>
#include <QSet>
#include <vector>

#include "app/base/BusySet.h"
#include "app/base/TableModel.h"
#include "app/base/TableSort.h"
#include "kit/models/campaigns/campaignSummary.h"

namespace orv {

/// What the person asked to see of the campaigns.
struct CampaignQuery {
  /// "all" or a status.
  QString filter = QStringLiteral("all");
  /// Search text as typed.
  QString query;
  /// One of them suffices.
  QSet<QString> tags;
  std::optional<OrvSort> sort;
};

/// Campaigns prepared for filtering and sorting at every keystroke: ten thousand of them within a frame.
class CampaignIndex {
 public:
  explicit CampaignIndex(QList<CampaignSummary> items = {});

  const QList<CampaignSummary>& items() const { return m_items; }
  const CampaignSummary* find(const QString& id) const;
  /// All tags in use, in the user's alphabetical order.
  const QStringList& tags() const;
  /// The rows that `query` leaves, in its order; without one, in the service's.
  std::vector<CampaignSummary> visible(const CampaignQuery& query) const;

 private:
  void sort(std::vector<qsizetype>& rows, const OrvSort& sort) const;
  void sortByName(std::vector<qsizetype>& rows, bool descending) const;

  QList<CampaignSummary> m_items;
  std::vector<QString> m_lowerNames;
  /// Collation keys are dear; they are made when the first sort by name asks for them.
  mutable std::vector<QCollatorSortKey> m_nameKeys;
  /// The page reads them again with every keystroke.
  mutable std::optional<QStringList> m_tags;
};

/// The rows on screen: the records and what the table says of them.
class CampaignRowsModel final : public TableModel<CampaignRowsModel, CampaignSummary> {
 public:
  CampaignRowsModel(const BusySet& busy, const BusySet& unsaved, QObject* parent = nullptr);

  static const Cells& cells();

 private:
  const BusySet& m_busy;
  const BusySet& m_unsaved;
};

}  // namespace orv
