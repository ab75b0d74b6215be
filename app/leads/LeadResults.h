#pragma once

#include "app/base/Choice.h"
#include "app/base/Form.h"
#include "app/base/PagedList.h"
#include "app/base/RowSelection.h"
#include "app/leads/FoundLeads.h"
#include "app/leads/LeadActions.h"
#include "app/leads/LeadCard.h"

namespace orv {

/// What one search has found, read page by page: the search tab has one, each opened list another. The ticks, the card
/// of one lead, and what an action with them applies to.
///
/// The rows of an older search stay, dimmed, until those of the newer one come; nothing of it is shown under a newer
/// one that failed.
class LeadResults final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::PagedListBase* list READ list CONSTANT)
  Q_PROPERTY(orv::RowSelection* selection READ selection CONSTANT)
  Q_PROPERTY(orv::LeadCard* card READ card CONSTANT)
  Q_PROPERTY(orv::LeadActions* actions READ leadActions CONSTANT)
  Q_PROPERTY(orv::Form* firstForm READ firstForm CONSTANT)
  Q_PROPERTY(bool waiting READ waiting NOTIFY changed)
  Q_PROPERTY(QString countText READ countText NOTIFY changed)
  Q_PROPERTY(QString shownText READ shownText NOTIFY changed)
  Q_PROPERTY(QString selectedText READ selectedText NOTIFY selectionChanged)
  Q_PROPERTY(bool hasTarget READ hasTarget NOTIFY selectionChanged)

 public:
  static constexpr qint64 firstPage = 30, furtherPage = 20;

  LeadResults(WorkspaceContext& context, Store& whole, LeadActions& actions);

  using List = PagedList<LeadSearchPage, FoundLeadsModel>;
  List* list() { return &m_list; }
  RowSelection* selection() { return &m_selection; }
  LeadCard* card() { return &m_card; }
  LeadActions* leadActions() { return &m_actions; }
  /// Asks how many of the first leads are selected.
  Form* firstForm() { return &m_firstForm; }

  const LeadSearch& search() const { return m_search; }
  /// Reads what it finds, unless that is what is shown.
  void ask(const LeadSearch& search);
  /// Another search is being typed: what is under way is let go, and what is shown is old.
  void expect();
  /// What is shown answers an older search.
  bool waiting() const { return m_isExpecting || m_list.asksAnew(); }

  /// Nothing before the first answer.
  std::optional<LeadCount> count() const;
  /// "About 18,420 leads match"; "Counting".
  QString countText() const;
  /// "30 of about 18,420 leads".
  QString shownText() const;
  /// "4 selected".
  QString selectedText() const;

  /// What is ticked, or the first so many, or else every match of a search that has filters. Nothing where neither is,
  /// or while what it would be is unknown.
  std::optional<LeadTarget> target() const;
  bool hasTarget() const { return target().has_value(); }
  Q_INVOKABLE void addToList();
  Q_INVOKABLE void addToCampaign();
  Q_INVOKABLE void unlock();

  Q_INVOKABLE void tickLoaded();
  Q_INVOKABLE void askFirst() { m_firstForm.show(); }
  /// Why the number cannot be; empty when it can.
  Q_INVOKABLE QString firstProblem(const QString& text) const;
  Q_INVOKABLE void takeFirst(const QString& text);

  void ensureLoaded() override;
  void refresh() override;

 Q_SIGNALS:
  void changed();
  void selectionChanged();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  Task<LeadSearchPage> readPage(PageRequest page);
  void take(const QList<UnlockResult::Item>& leads);
  void withTarget(void (LeadActions::*act)(const LeadTarget&));
  const Lead* find(const QString& id) const;

  LeadActions& m_actions;
  LeadSearch m_search;
  List m_list;
  RowSelection m_selection{m_list};
  LeadCard m_card;
  Form m_firstForm;
  bool m_isExpecting = false;
};

}  // namespace orv
