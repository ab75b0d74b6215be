#pragma once

#include "app/base/Choice.h"
#include "app/base/Store.h"
#include "app/leads/LeadFields.h"
#include "kit/models/leads/facets.h"
#include "kit/models/leads/leadSearch.h"

namespace orv {

/// What the lists of a filter's values share.
struct FacetContext {
  WorkspaceContext& workspace;
  Store& whole;
  const LeadSearch& search;
  /// Values that nobody typed for, by field and database: they do not depend on the search.
  QHash<QString, QList<FacetPage::Item>> known = {};
  /// The workspace's records that stand for a field's values; nothing while they are not known.
  std::function<std::optional<QList<FacetPage::Item>>(const QString& key)> records = {};
};

/// The values that a filter, or its exclusions, can have in the database that is searched: found by typing, the first
/// few of them or all, and which of them are ticked.
///
/// While another reading is awaited the last one stays; the answer to an older text or another database is never shown.
class FacetList final : public Store {
  Q_OBJECT
  Q_PROPERTY(QString key READ key CONSTANT)
  Q_PROPERTY(QString title READ title CONSTANT)
  Q_PROPERTY(QString placeholder READ placeholder CONSTANT)
  Q_PROPERTY(QString typed READ typed WRITE setTyped NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> rows READ rows NOTIFY changed)
  Q_PROPERTY(int hiddenCount READ hiddenCount NOTIFY changed)
  Q_PROPERTY(bool expanded READ expanded WRITE setExpanded NOTIFY changed)
  Q_PROPERTY(bool waiting READ waiting NOTIFY changed)
  Q_PROPERTY(bool failed READ failed NOTIFY changed)
  Q_PROPERTY(bool canAdd READ canAdd NOTIFY changed)
  Q_PROPERTY(bool single READ single CONSTANT)
  Q_PROPERTY(QString emptyText READ emptyText NOTIFY changed)

 public:
  /// So many show until somebody asks for more.
  static constexpr int shownAtFirst = 8;
  static constexpr std::chrono::milliseconds typingRest{250};

  FacetList(const QString& key, FacetContext& context);

  const QString& key() const { return m_key; }
  /// "Title"; "Exclude titles".
  QString title() const;
  /// "Search titles".
  QString placeholder() const { return QStringLiteral("Search ") + m_field.several; }
  const QString& typed() const { return m_typed; }
  void setTyped(const QString& text);
  /// What shows of them, with those that are ticked.
  QList<Choice> rows() const;
  int hiddenCount() const;
  bool expanded() const { return m_isExpanded; }
  void setExpanded(bool expanded);
  /// What shows is not yet what was asked for.
  bool waiting() const { return !isAnswered() && !m_failed; }
  /// The last reading failed; what was read before it shows.
  bool failed() const { return m_failed; }
  /// What was typed can be a value of its own.
  bool canAdd() const;
  /// Only one value at a time.
  bool single() const { return m_field.kind == LeadField::Kind::record; }
  /// Says that there is nothing; empty while there is something, or while nobody knows.
  QString emptyText() const;
  /// The service's words for a value.
  QString labelOf(const QString& value) const;

  /// What a value means, where its label says too little.
  Q_INVOKABLE QString hintOf(const QString& value) const;
  /// Reads what is asked for, unless that is there.
  Q_INVOKABLE void show();
  Q_INVOKABLE void tryAgain() { load(); }
  void searchChanged();

 Q_SIGNALS:
  void changed();
  /// Words for values have come.
  void learned();

 private:
  /// What values were asked for.
  struct Question {
    QString database;
    QString typed;
    bool operator==(const Question&) const = default;
  };

  Question question() const;
  bool holds(const QString& value) const;
  bool isAnswered() const { return m_answered && *m_answered == question(); }
  QString knownAs(const QString& database) const { return m_field.key + u'/' + database; }
  void load();
  void ask(bool isTyped);
  Task<void> loadTask(Question question, bool isTyped);
  void answer(const Question& question, const QList<FacetPage::Item>& items);
  QList<FacetPage::Item> shownItems() const;

  FacetContext& m_context;
  const QString m_key;
  const LeadField m_field;
  QString m_typed;
  QList<FacetPage::Item> m_items;
  std::optional<Question> m_answered;
  Question m_asked;
  TaskSlot m_load;
  bool m_isExpanded = false;
  bool m_isWanted = false;
  bool m_failed = false;
};

}  // namespace orv
