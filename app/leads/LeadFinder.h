#pragma once

#include "app/leads/LeadColumns.h"
#include "app/leads/LeadFilters.h"
#include "app/leads/LeadResults.h"
#include "app/leads/SavedSearches.h"
#include "kit/models/campaigns/campaignSummary.h"

namespace orv {

class LeadLists;

/// The search for leads: its filters, what they find, and how much of it there is.
class LeadFinder final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::LeadFilters* filters READ filters CONSTANT)
  Q_PROPERTY(orv::LeadResults* results READ results CONSTANT)
  Q_PROPERTY(orv::SavedSearches* saved READ saved CONSTANT)
  Q_PROPERTY(orv::LeadColumns* columns READ columns CONSTANT)
  Q_PROPERTY(QString pool READ pool WRITE setPool NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> pools READ pools NOTIFY changed)
  Q_PROPERTY(bool poolsWaiting READ poolsWaiting NOTIFY changed)
  Q_PROPERTY(QString totalText READ totalText NOTIFY changed)

 public:
  static constexpr std::chrono::milliseconds typingRest{250};

  /// `lists` are the workspace's, which a search can be narrowed to.
  LeadFinder(WorkspaceContext& context, Store& whole, LeadActions& actions, LeadLists& lists);

  LeadFilters* filters() { return &m_filters; }
  LeadResults* results() { return &m_results; }
  SavedSearches* saved() { return &m_saved; }
  LeadColumns* columns() { return &m_columns; }

  QString pool() const { return m_filters.search().pool(); }
  void setPool(const QString& pool) { m_filters.setPool(pool); }
  /// With how many leads each holds, as far as that is known.
  QList<Choice> pools() const;
  /// The pools' counts answer an older search.
  bool poolsWaiting() const { return m_results.waiting() || m_pools.refreshing(); }
  /// "1.2M leads in LinkedIn"; empty while unknown.
  QString totalText() const;

  /// Asks under which name the filters on the screen are kept.
  Q_INVOKABLE void save() { m_saved.beginSave(m_filters.search().values); }
  /// The saved filters take the place of those on the screen.
  Q_INVOKABLE void open(const QString& saved);

  void ensureLoaded() override;
  void refresh() override;
  PagePlace where() const override;
  void goTo(const PagePlace& place) override;
  void trim() override;

 Q_SIGNALS:
  void changed();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  void searchEdited(bool typed);
  void ask();
  void countPools();
  void leadsCame(const QString& key, const QString& id);
  Task<void> askLater();
  std::optional<QList<FacetPage::Item>> records(const QString& key);

  Store& m_page;
  LeadLists& m_lists;
  Resource<CampaignList> m_campaigns;
  LeadFilters m_filters;
  LeadResults m_results;
  SavedSearches m_saved;
  LeadColumns m_columns;
  Resource<LeadPools> m_pools;
  Resource<LeadTotals> m_totals;
  TaskSlot m_later;
  bool m_isTyped = false;
  /// Leads have gone from one pool to another since the rows were read.
  bool m_hasMoved = false;
};

}  // namespace orv
