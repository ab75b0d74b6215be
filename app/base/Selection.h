#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

namespace orv {

/// The records a person has ticked, by id, with the one that ranges start from.
class Selection {
 public:
  const QSet<QString>& ids() const { return m_ids; }
  bool isEmpty() const { return m_ids.isEmpty(); }

  void toggle(const QString& id);
  /// Ticks every row from the anchor, or from `from` where that is not among them, to `to`. `visible` are the rows'
  /// ids in their order.
  void extend(const QStringList& visible, const QString& from, const QString& to);
  /// Ticks all of `visible`, or none when all of them are ticked already.
  void toggleAll(const QStringList& visible);
  void clear();
  /// Keeps only what is still there.
  void prune(const QSet<QString>& there);

 private:
  QSet<QString> m_ids;
  QString m_anchor;
};

}  // namespace orv
