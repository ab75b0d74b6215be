#pragma once

#include <QtQml/qqmlregistration.h>

#include "ui/design/FocusTrail.h"

namespace orv {

/// Keeps the keyboard somewhere in its window. What has it may go, be hidden or be put behind something else; then the
/// next best place takes over: see FocusTrail. A page that is opened begins at its heading, and the keys that move go
/// from there into what the page is about.
class FocusKeeper : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  /// Of the page; null while there is none.
  Q_PROPERTY(QQuickItem* heading READ heading NOTIFY entered)

 public:
  explicit FocusKeeper(QQuickItem* parent = nullptr) : QQuickItem(parent) {}

  QQuickItem* heading() const;
  /// Has the page begin at its heading.
  Q_INVOKABLE void enter(QQuickItem* page);
  /// A key that was pressed at the heading goes to what would have had the focus without it; false where that is not
  /// so.
  Q_INVOKABLE bool goIn(int key, int modifiers);
  /// The page's own focus, or its first control where that is nowhere.
  Q_INVOKABLE void focusPage(QQuickItem* page);
  /// Nothing has the keyboard that could do something with it.
  Q_INVOKABLE bool isNowhere() const;

 Q_SIGNALS:
  void entered();

 protected:
  void itemChange(ItemChange change, const ItemChangeData& data) override;

 private:
  void follow();
  void settle();
  static bool isNowhere(const QQuickItem* item);
  QQuickItem* inner() const;

  QPointer<QQuickItem> m_page;
  /// The focus scopes of the page, from the outermost to what had the focus in the innermost.
  QList<QPointer<QQuickItem>> m_inside;
  FocusTrail m_last;
  FocusTrail m_lastInPage;
  bool m_settling = false;
};

}  // namespace orv
