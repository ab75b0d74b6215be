#pragma once

#include <QObject>
#include <QSet>
#include <QStringList>
#include <optional>

namespace orv {

class PagedListBase;

/// The rows of a list that a person has ticked, by id, with the one that ranges start from. What a reading or a
/// finished action does to them is the list's owner's to say.
class RowSelection : public QObject {
  Q_OBJECT
  Q_PROPERTY(QStringList ids READ ids NOTIFY changed)
  Q_PROPERTY(int count READ count NOTIFY changed)

 public:
  explicit RowSelection(const PagedListBase& list) : m_list(list) {}

  /// In the order of the rows; those that a filter hides come last.
  const QStringList& ids() const { return m_ordered; }
  /// Those ticked, or as many as takeFirst() said.
  int count() const { return m_first.value_or(int(m_ids.size())); }
  bool isEmpty() const { return count() == 0; }
  bool contains(const QString& id) const { return m_ids.contains(id); }
  /// The first so many of what the list answers, read or not, stand for ticked ones.
  std::optional<int> first() const { return m_first; }

  Q_INVOKABLE void toggle(const QString& id);
  /// Ticks every row from the anchor, or from `from` where that is not shown, to `to`.
  Q_INVOKABLE void extendTo(const QString& from, const QString& to);
  /// Ticks all that are shown, or none when all of them are ticked already.
  Q_INVOKABLE void toggleAll();
  Q_INVOKABLE void clear();
  void takeFirst(int count);
  void untick(const QStringList& ids);
  /// Keeps only rows that the list still has.
  void prune();

 Q_SIGNALS:
  void changed();

 private:
  void tellIf(bool isAnother);

  const PagedListBase& m_list;
  QSet<QString> m_ids;
  QStringList m_ordered;
  QString m_anchor;
  std::optional<int> m_first;
};

}  // namespace orv
