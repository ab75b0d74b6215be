#pragma once

#include <QPointer>
#include <QQuickItem>

namespace orv {

/// Where the keyboard was, remembered well enough to find the next best place once that is gone: a like control of the
/// neighbour that took its place, a tab strip over what was put in its place, a control beside it, and so outwards.
class FocusTrail {
 public:
  void remember(QQuickItem* item);
  QQuickItem* item() const { return m_steps.isEmpty() ? nullptr : m_steps.first().item.data(); }
  /// What takes the keyboard now: the item itself while it can. Null when nothing in the same page or popup can.
  QQuickItem* heir() const;
  /// It led into a popup that is still there.
  bool isInPopup() const;
  /// It led through the item.
  bool isThrough(const QQuickItem* item) const;

  /// Somebody can see it and do something with it.
  static bool isUsable(const QQuickItem* item);
  /// The first thing in it that Tab stops at, itself included; the last one backwards.
  static QQuickItem* stopIn(QQuickItem* item, bool forward = true);
  /// It is part of a popup that is open.
  static bool isInPopup(const QQuickItem* item);

 private:
  /// From the item outwards, each with its place among its siblings.
  struct Step {
    QPointer<QQuickItem> item;
    qsizetype place = 0;
    bool isPopup = false;
  };

  QQuickItem* beside(qsizetype step, bool isSwapped) const;
  QQuickItem* alike(QQuickItem* neighbour, qsizetype step) const;

  QList<Step> m_steps;
};

}  // namespace orv
