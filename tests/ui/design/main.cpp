#include <QtQml/qqmlengine.h>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest/quicktest.h>

Q_IMPORT_QML_PLUGIN(Orvella_DesignPlugin)

class Setup : public QObject {
  Q_OBJECT

 public Q_SLOTS:  // NOLINT: called by name
  void qmlEngineAvailable(QQmlEngine* engine) {
    // Qt 6.4 does not look there by itself.
    engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
  }
};

QUICK_TEST_MAIN_WITH_SETUP(design, Setup)

#include "main.moc"
