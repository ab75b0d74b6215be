#pragma once

#include <QQuickItem>
#include <QTest>

#include "desktop/scenes/Stage.h"
#include "tests/ui/support/warnings.h"

namespace orv::ui {

/// A window on the sample workspace, driven by its keys. No test of it may lead to a QML warning.
class WindowTest : public QObject {
  Q_OBJECT

 protected:
  void begin(const StageSetting& setting = {}, StageTime* time = nullptr) {
    m_stage = std::make_unique<Stage>(*m_engine, setting, time);
    QVERIFY(m_stage->isReady());
    QVERIFY(QTest::qWaitForWindowActive(&m_stage->window()));
  }
  void beginAt(Page page, const StageSetting& setting = {}, StageTime* time = nullptr) {
    begin(setting, time);
    m_stage->app().router()->open(page);
    m_stage->settle();
  }
  template <class S>
  S& store() {
    return *m_stage->app().session()->store<S>();
  }

  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&m_stage->window(), key, modifiers); }
  void type(const QString& text) {
    for (const QChar letter : text) QTest::keyClick(&m_stage->window(), letter.toLatin1());
  }
  QQuickItem* focused() { return m_stage->window().activeFocusItem(); }
  /// A table's rows are known by their keys.
  bool rowHasFocus() { return focused() && focused()->property("key").isValid(); }
  QString lastMessage() {
    const auto& toasts = m_stage->app().toasts()->toasts();
    return toasts.isEmpty() ? QString() : toasts.last().message;
  }

  std::unique_ptr<QQmlEngine> m_engine;
  std::unique_ptr<Stage> m_stage;

 protected Q_SLOTS:  // NOLINT: Qt Test calls them by name
  void initTestCase() {
    m_engine = std::make_unique<QQmlEngine>();
    ClientWindow::prepare(*m_engine);
  }
  void init() { failOnWarnings(); }
  void cleanup() { m_stage.reset(); }
};

}  // namespace orv::ui
