#include "desktop/ClientWindow.h"

#include <QtQml/qqmlextensionplugin.h>
#include <QFile>
#include <QLoggingCategory>
#include <QQmlComponent>
#include <QSysInfo>

#include "areaPlugins.h"
#include "kit/api/APIEnvironment.h"

Q_IMPORT_QML_PLUGIN(Orvella_DesignPlugin)
Q_IMPORT_QML_PLUGIN(Orvella_AppPlugin)
Q_IMPORT_QML_PLUGIN(Orvella_ShellPlugin)

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

Q_LOGGING_CATEGORY(lcWindow, "orvella.window")

QString hardwareModel() {
  QFile file(u"/sys/devices/virtual/dmi/id/product_name"_s);
  const QByteArray name = file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
  return name.isEmpty() ? QSysInfo::currentCpuArchitecture() : QString::fromUtf8(name);
}

}  // namespace

ClientWindow::ClientWindow(QQmlEngine& engine, Platform platform, FileForms fileForms, TableMemory* tables)
    : m_engine(engine),
      m_fileForms(fileForms),
      m_app(platform),
      m_commands(m_app),
      m_palette(platform.preferences, [this] { return m_commands.all(); }),
      m_tables(tables) {
  // QML would otherwise take what it is handed from C++ for its own and delete it.
  for (QObject* object :
       std::initializer_list<QObject*>{&m_app, &m_commands, &m_palette, tables, fileForms.save, fileForms.open})
    QQmlEngine::setObjectOwnership(object, QQmlEngine::CppOwnership);
  QObject::connect(&m_palette, &CommandPalette::searching, &m_commands, &Commands::load);
  QObject::connect(&m_commands, &Commands::changed, &m_palette, [this] {
    if (m_app.router()->paletteOpen()) m_palette.renew();
  });
}

QQuickWindow* ClientWindow::open() {
  QQmlComponent component(&m_engine, QUrl(u"qrc:/qt/qml/Orvella/Shell/OrvellaWindow.qml"_s));
  if (!component.isReady()) {
    qCCritical(lcWindow, "The window does not load: %s", qPrintable(component.errorString()));
    return nullptr;
  }
  std::unique_ptr<QObject> made(component.createWithInitialProperties({
      {u"app"_s, QVariant::fromValue(&m_app)},
      {u"palette"_s, QVariant::fromValue(&m_palette)},
      {u"tables"_s, QVariant::fromValue(m_tables)},
      {u"commands"_s, QVariant::fromValue(&m_commands)},
      {u"saveForm"_s, QVariant::fromValue(m_fileForms.save)},
      {u"openForm"_s, QVariant::fromValue(m_fileForms.open)},
  }));
  auto* window = qobject_cast<QQuickWindow*>(made.get());
  if (!window) {
    qCCritical(lcWindow, "The window does not load: %s", qPrintable(component.errorString()));
    return nullptr;
  }
  m_window.reset(window);
  m_app.notifier()->begin();
  (void)made.release();
  return window;
}

Device ClientWindow::thisDevice() {
  const ClientIdentity& identity = ClientIdentity::current();
  return {QSysInfo::machineHostName(), hardwareModel(), identity.osName(), identity.appVersion};
}

void ClientWindow::prepare(QQmlEngine& engine) {
  // This version of Qt does not look there by itself.
  engine.addImportPath(u"qrc:/qt/qml"_s);
}

}  // namespace orv
