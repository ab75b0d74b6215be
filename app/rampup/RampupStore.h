#pragma once

#include "app/base/Choice.h"
#include "app/rampup/AddToTemplate.h"
#include "app/rampup/RampupBulk.h"
#include "app/rampup/RampupDetails.h"
#include "app/rampup/RoadmapActions.h"
#include "app/rampup/RoadmapTemplates.h"

namespace orv {

struct Mailbox;

/// The accounts by how far they are on their roadmaps, and the templates of these.
class RampupStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::PagedListBase* list READ list CONSTANT)
  Q_PROPERTY(orv::RampupBulk* bulk READ bulk CONSTANT)
  Q_PROPERTY(orv::RoadmapActions* accounts READ accounts CONSTANT)
  Q_PROPERTY(orv::RampupDetails* details READ details CONSTANT)
  Q_PROPERTY(orv::RoadmapTemplates* templates READ templates CONSTANT)
  Q_PROPERTY(orv::AddToTemplate* adding READ adding CONSTANT)
  Q_PROPERTY(orv::RoadmapEditor* editor READ editor CONSTANT)
  Q_PROPERTY(QString filter READ filter WRITE setFilter NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> phases READ phases NOTIFY changed)
  Q_PROPERTY(QString sortKey READ sortKey NOTIFY changed)
  Q_PROPERTY(bool sortDescending READ sortDescending NOTIFY changed)
  Q_PROPERTY(bool showTemplates READ showTemplates WRITE setShowTemplates NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> sections READ sections NOTIFY changed)
  Q_PROPERTY(QString summary READ summary NOTIFY changed)
  Q_PROPERTY(QString protectedText READ protectedText NOTIFY changed)
  Q_PROPERTY(QString countText READ countText NOTIFY changed)

 public:
  explicit RampupStore(WorkspaceContext& context);

  RampupAccounts* list() { return &m_list; }
  RampupBulk* bulk() { return &m_bulk; }
  RoadmapActions* accounts() { return &m_actions; }
  RampupDetails* details() { return &m_details; }
  RoadmapTemplates* templates() { return &m_templates; }
  AddToTemplate* adding() { return &m_adding; }
  RoadmapEditor* editor() { return &m_editor; }

  /// "all" or a phase.
  const QString& filter() const { return m_filter; }
  void setFilter(const QString& filter);
  QList<Choice> phases() const;
  QString sortKey() const { return m_sort ? m_sort->key : QString(); }
  bool sortDescending() const { return m_sort && m_sort->descending; }
  /// An empty key is the service's order.
  Q_INVOKABLE void sort(const QString& key, bool descending);
  Q_INVOKABLE void showAll() { setFilter(QStringLiteral("all")); }

  bool showTemplates() const { return m_showTemplates; }
  void setShowTemplates(bool shown);
  QList<Choice> sections() const;
  /// "46 on a roadmap · 812 of 874 warm-up emails sent today".
  const QString& summary() const { return m_summary; }
  /// "1 paused by auto-protect"; empty for none.
  const QString& protectedText() const { return m_protected; }
  QString countText() const;

  const RampupItem* find(const QString& id) const;
  Q_INVOKABLE void open(const QString& id) { context().openItem(Page::rampup, id); }

  void ensureLoaded() override;
  void refresh() override;
  QStringList unsavedWork() const override { return Store::unsavedWork() + m_editor.unsavedWork(); }
  QList<FoundRecord> found() const override;
  void ensureFound() override { m_list.ensureLoaded(); }
  PagePlace where() const override;
  void goTo(const PagePlace& place) override;
  void begin() override;

 Q_SIGNALS:
  void changed();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  QList<PageAction> offeredOnPage();
  Task<RampupPart> readPart(PageRequest wanted);
  void count();
  void followMailbox(const Change<Mailbox>& change);

  QString m_filter = QStringLiteral("all");
  std::optional<OrvSort> m_sort;
  bool m_showTemplates = false;
  RampupAccounts m_list;
  RampupRest m_rest;
  RoadmapEditor m_editor;
  RoadmapActions m_actions;
  RampupDetails m_details;
  RampupBulk m_bulk;
  RoadmapTemplates m_templates;
  AddToTemplate m_adding;
  QMap<QString, int> m_counts;
  QString m_summary;
  QString m_protected;
};

}  // namespace orv
