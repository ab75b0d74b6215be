#include "ui/design/SecretText.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QQuickWindow>

namespace {

/// What `Accessible` says in QML; null for an item that says nothing.
const QObject* sayingsOf(const QQuickItem& item) {
  for (const QObject* child : item.children())
    if (qstrcmp(child->metaObject()->className(), "QQuickAccessibleAttached") == 0) return child;
  return nullptr;
}

/// A password field as assistive programs see it: where it is, what it is called, how much is typed.
class Spoken final : public QAccessibleObject, public QAccessibleTextInterface, public QAccessibleActionInterface {
 public:
  Spoken(QQuickItem* item, const SecretText* secret) : QAccessibleObject(item), m_secret(secret) {}

  QAccessible::Role role() const override { return QAccessible::EditableText; }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.passwordEdit = true;
    state.readOnly = item().property("readOnly").toBool();
    state.editable = !state.readOnly;
    state.selectableText = true;
    state.focusable = item().activeFocusOnTab();
    state.focused = item().hasActiveFocus();
    state.disabled = !item().isEnabled();
    state.invisible = !item().window() || !item().window()->isVisible() || !item().isVisible();
    return state;
  }
  QString text(QAccessible::Text which) const override {
    if (which == QAccessible::Value) return bullets();
    if (which == QAccessible::Name) return m_secret ? m_secret->name() : QString();
    const QObject* const sayings = which == QAccessible::Description ? sayingsOf(item()) : nullptr;
    return sayings ? sayings->property("description").toString() : QString();
  }
  QRect rect() const override {
    return QRectF(item().mapToGlobal(QPointF()), QSizeF(item().width(), item().height())).toRect();
  }
  QWindow* window() const override { return item().window(); }

  QAccessibleInterface* parent() const override {
    for (QQuickItem* up = item().parentItem(); up; up = up->parentItem())
      if (QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(up)) return spoken;
    return QAccessible::queryAccessibleInterface(item().window());
  }
  int childCount() const override { return 0; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
  }

  QStringList actionNames() const override { return {setFocusAction()}; }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }
  void doAction(const QString& name) override {
    if (name == setFocusAction()) item().forceActiveFocus();
  }

  QString text(int start, int end) const override { return bullets().mid(start, end - start); }
  int characterCount() const override { return item().property("length").toInt(); }
  int cursorPosition() const override { return item().property("cursorPosition").toInt(); }
  void setCursorPosition(int position) override { item().setProperty("cursorPosition", position); }
  int selectionCount() const override { return start() == end() ? 0 : 1; }
  void selection(int, int* from, int* to) const override {
    *from = start();
    *to = end();
  }
  void addSelection(int, int) override {}
  void removeSelection(int) override {}
  void setSelection(int, int, int) override {}
  void scrollToSubstring(int, int) override {}
  QString attributes(int, int* from, int* to) const override {
    *from = 0;
    *to = characterCount();
    return {};
  }
  // The width of a character may tell which it is.
  QRect characterRect(int) const override { return {}; }
  int offsetAtPoint(const QPoint&) const override { return -1; }

 private:
  QPointer<const SecretText> m_secret;

  QQuickItem& item() const { return *static_cast<QQuickItem*>(object()); }
  QString bullets() const { return QString(characterCount(), QChar(0x2022)); }
  int start() const { return item().property("selectionStart").toInt(); }
  int end() const { return item().property("selectionEnd").toInt(); }
};

}  // namespace

void SecretText::setField(QQuickItem* field) {
  if (m_field == field) return;
  m_field = field;
  follow();
  Q_EMIT changed();
}

void SecretText::setKept(bool kept) {
  if (std::exchange(m_kept, kept) == kept) return;
  follow();
  Q_EMIT changed();
}

void SecretText::follow() {
  if (!m_field) return;
  QAccessibleInterface* const now = QAccessible::queryAccessibleInterface(m_field);
  if (!now || m_kept == (dynamic_cast<Spoken*>(now) != nullptr)) return;
  QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(now));
  // It goes with its item.
  if (m_kept) QAccessible::registerAccessibleInterface(new Spoken(m_field, this));
}
