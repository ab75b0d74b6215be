#pragma once

#include <QAccessible>
#include <QMetaEnum>
#include <QQuickItem>
#include <QQuickWindow>

namespace orv::ui {

/// Does what a screen reader does: it knows items by what they say of themselves and presses them without a pointer.
class Reader : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  Q_INVOKABLE static bool press(QQuickItem* item) { return act(item, QAccessibleActionInterface::pressAction()); }
  Q_INVOKABLE static bool toggle(QQuickItem* item) { return act(item, QAccessibleActionInterface::toggleAction()); }
  Q_INVOKABLE static QString nameOf(QQuickItem* item) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(item);
    return spoken ? spoken->text(QAccessible::Name) : QString();
  }
  /// "ComboBox": what it is to whoever listens now.
  Q_INVOKABLE static QString roleOf(QQuickItem* item) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(item);
    return spoken ? QString::fromLatin1(QMetaEnum::fromType<QAccessible::Role>().valueToKey(spoken->role()))
                  : QString();
  }
  Q_INVOKABLE static QString descriptionOf(QQuickItem* item) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(item);
    return spoken ? spoken->text(QAccessible::Description) : QString();
  }
  /// What a field holds, asked for in each way there is.
  Q_INVOKABLE static QString textOf(QQuickItem* item) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(item);
    QAccessibleTextInterface* text = spoken ? spoken->textInterface() : nullptr;
    if (!text) return QStringLiteral("no text");
    const QString whole = text->text(0, text->characterCount());
    int start = 0, end = 0;
    const QString word = text->textAtOffset(0, QAccessible::LineBoundary, &start, &end);
    return whole == spoken->text(QAccessible::Value) && whole == word ? whole : whole + u'/' + word;
  }
  Q_INVOKABLE static QString selectedIn(QQuickItem* item) {
    QAccessibleTextInterface* text = QAccessible::queryAccessibleInterface(item)->textInterface();
    int start = 0, end = 0;
    text->selection(0, &start, &end);
    return text->text(start, end);
  }
  /// What fields tell by themselves from now on.
  Q_INVOKABLE static void listen() {
    said().clear();
    QAccessible::setActive(true);
    QAccessible::installUpdateHandler([](QAccessibleEvent* event) {
      if (const auto* update = dynamic_cast<QAccessibleTextUpdateEvent*>(event))
        said() += update->textRemoved() + update->textInserted();
      if (const auto* insert = dynamic_cast<QAccessibleTextInsertEvent*>(event)) said() += insert->textInserted();
      if (const auto* removal = dynamic_cast<QAccessibleTextRemoveEvent*>(event)) said() += removal->textRemoved();
      if (const auto* value = dynamic_cast<QAccessibleValueChangeEvent*>(event)) said() += value->value().toString();
    });
  }
  /// What the window tells at the moment, wherever the focus is.
  static QString noticeIn(QQuickItem* item) { return notice(QAccessible::queryAccessibleInterface(item->window())); }
  Q_INVOKABLE static QString heard() {
    QAccessible::installUpdateHandler(nullptr);
    QAccessible::setActive(false);
    return said();
  }
  /// Everything that a walk through the window comes to.
  Q_INVOKABLE static QStringList heardIn(QQuickItem* item) {
    QStringList names;
    walk(QAccessible::queryAccessibleInterface(item->window()), names);
    return names;
  }
  /// The shown item that is called so, the one drawn last where there are several.
  Q_INVOKABLE static QQuickItem* find(QQuickItem* in, const QString& name) {
    if (!in || !in->isVisible()) return nullptr;
    const QList<QQuickItem*> children = in->childItems();
    for (auto child = children.crbegin(); child != children.crend(); ++child)
      if (QQuickItem* found = find(*child, name)) return found;
    return nameOf(in) == name ? in : nullptr;
  }

 private:
  static QString& said() {
    static QString texts;
    return texts;
  }
  static QString notice(QAccessibleInterface* spoken) {
    if (!spoken || spoken->state().invisible) return {};
    if (spoken->role() == QAccessible::Notification) return spoken->text(QAccessible::Name);
    for (int i = 0; i < spoken->childCount(); ++i)
      if (const QString found = notice(spoken->child(i)); !found.isEmpty()) return found;
    return {};
  }
  static void walk(QAccessibleInterface* spoken, QStringList& names) {
    if (!spoken) return;
    names.append(spoken->text(QAccessible::Name));
    for (int i = 0; i < spoken->childCount(); ++i) {
      QAccessibleInterface* child = spoken->child(i);
      if (child && child->parent() != spoken)
        names.append(QStringLiteral("a stranger's child: ") + child->text(QAccessible::Name));
      walk(child, names);
    }
  }
  static bool act(QQuickItem* item, const QString& action) {
    QAccessibleInterface* spoken = item ? QAccessible::queryAccessibleInterface(item) : nullptr;
    QAccessibleActionInterface* actions = spoken ? spoken->actionInterface() : nullptr;
    if (!actions || !actions->actionNames().contains(action)) return false;
    actions->doAction(action);
    return true;
  }
};

}  // namespace orv::ui
