#pragma once

#include <QHash>
#include <QSet>
#include <boost/describe/class.hpp>
#include <memory>
#include <vector>

#include "app/base/BusySet.h"
#include "app/base/RecordModel.h"
#include "app/base/RowFields.h"
#include "kit/models/campaigns/campaignLead.h"

namespace orv {

/// A lead in a list. The record is shared: a hundred thousand of them go through filter and model by pointer.
struct LeadRow {
  QString id;
  std::shared_ptr<const CampaignLead> lead;
  bool operator==(const LeadRow& other) const { return lead == other.lead || *lead == *other.lead; }
};
// What else the table shows is said by the model.
BOOST_DESCRIBE_STRUCT(LeadRow, (), (id))
ORV_DECLARE_ROW(LeadRow)

/// The leads read so far, prepared for searching at every keystroke.
class LeadIndex {
 public:
  qsizetype size() const { return qsizetype(m_rows.size()); }
  bool contains(const QString& id) const { return m_places.contains(id); }
  const CampaignLead* find(const QString& id) const;
  QSet<QString> ids() const;

  void replace(const QList<CampaignLead>& leads);
  /// Adds a further page and gives the rows that are new; leads that are known take their new values in place.
  std::vector<LeadRow> append(const QList<CampaignLead>& leads);
  void remove(const QSet<QString>& ids);

  /// The rows whose address, name, company or title holds the text; all of them for an empty one.
  std::vector<LeadRow> matching(const QString& query) const;
  static std::vector<LeadRow> matching(const QString& query, std::vector<LeadRow> rows);

 private:
  std::vector<LeadRow> m_rows;
  /// What is searched of each row, in lower case.
  std::vector<QString> m_texts;
  QHash<QString, size_t> m_places;
};

/// What the table says of the leads.
class LeadRowsModel final : public RecordModel<LeadRow> {
  Q_OBJECT

 public:
  enum Role {
    NameRole = firstRole + 1000,
    EmailRole,
    DetailRole,
    CompanyRole,
    TitleRole,
    StatusWordRole,
    StatusLabelRole,
    StepRole,
    WhenRole,
    WhenDetailRole,
    SenderRole,
    RemovedRole,
    GoneRole
  };

  using RecordModel<LeadRow>::RecordModel;

 protected:
  void addExtraRoles(QHash<int, QByteArray>& roles) const override;
  QVariant extraData(const LeadRow& row, int at, int role) const override;
};

/// "1 lead", "1,200 leads".
QString countedLeads(qint64 count);
/// The person's name, or the address where it is unknown.
QString leadName(const CampaignLead& lead);
/// An instant as the tab says it: "7 Mar, 14:20"; a dash for none.
QString leadMoment(const std::optional<QString>& instant);

}  // namespace orv
