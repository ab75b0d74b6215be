#include <QtQml/qqmlengine.h>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest/quicktest.h>
#include <QKeyEvent>
#include <QQmlContext>

#include "desktop/scenes/Contrast.h"
#include "tests/ui/support/Reader.h"
#include "tests/ui/support/warnings.h"
#include "ui/design/TableMemory.h"

Q_IMPORT_QML_PLUGIN(Orvella_DesignPlugin)

/// Sees what is drawn as it stands at the moment.
class Eye : public QObject {
  Q_OBJECT

 public:
  Q_INVOKABLE static QStringList faint(QQuickItem* item) { return orv::Contrast(*item->window()).faultsIn(*item); }
  Q_INVOKABLE static double contrast(const QColor& one, const QColor& other) {
    return orv::Contrast::ratio(one.rgb(), other.rgb());
  }
};

/// Holds a key down, as Qt Quick Test cannot.
class Hand : public QObject {
  Q_OBJECT

 public:
  /// The desktop repeats it, with its release.
  Q_INVOKABLE static void hold(QQuickItem* item, int key) {
    for (int i = 0; i < 3; ++i) {
      for (const QEvent::Type type : {QEvent::KeyRelease, QEvent::KeyPress}) {
        QKeyEvent event(type, key, Qt::NoModifier, key == Qt::Key_Space ? QStringLiteral(" ") : QStringLiteral("\r"),
                        true);
        QCoreApplication::sendEvent(item->window(), &event);
      }
    }
  }
};

class Setup : public QObject {
  Q_OBJECT

  orv::ui::Reader m_reader;
  Eye m_eye;
  Hand m_hand;
  QHash<QString, QByteArray> m_kept;
  orv::TableMemory m_memory{[this](const QString& table) { return m_kept.value(table); },
                            [this](const QString& table, const QByteArray& value) { m_kept.insert(table, value); }};

 public Q_SLOTS:  // NOLINT: called by name
  void qmlEngineAvailable(QQmlEngine* engine) {
    // Qt 6.4 does not look there by itself.
    engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine->rootContext()->setContextProperty(QStringLiteral("reader"), &m_reader);
    engine->rootContext()->setContextProperty(QStringLiteral("eye"), &m_eye);
    engine->rootContext()->setContextProperty(QStringLiteral("hand"), &m_hand);
    engine->rootContext()->setContextProperty(QStringLiteral("memory"), &m_memory);
    orv::ui::failOnWarnings(*engine);
  }
};

QUICK_TEST_MAIN_WITH_SETUP(design, Setup)

#include "main.moc"
