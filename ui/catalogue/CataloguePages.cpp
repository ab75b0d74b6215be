#include "ui/catalogue/CataloguePages.h"

#include <QtQml/qqmlextensionplugin.h>
#include <QQmlComponent>

Q_IMPORT_QML_PLUGIN(Orvella_DesignPlugin)
Q_IMPORT_QML_PLUGIN(Orvella_CataloguePlugin)

using namespace Qt::Literals::StringLiterals;

namespace orv::catalogue {

QStringList pages() {
  return {u"Buttons"_s, u"Fields"_s, u"Labels"_s, u"Table"_s, u"Charts"_s, u"Popups"_s, u"States"_s};
}

QList<Sheet> sheets() {
  QList<Sheet> list;
  for (const QString& page : pages()) list.append({page, {}});
  for (const auto& popup : {u"menu"_s, u"dialog"_s, u"danger"_s, u"palette"_s, u"drawer"_s, u"calendar"_s})
    list.append({u"Popups"_s, popup});
  return list;
}

void prepare(QQmlEngine& engine) { engine.addImportPath(u"qrc:/qt/qml"_s); }

namespace {

std::unique_ptr<QQuickWindow> openWith(QQmlEngine& engine, const QVariantMap& properties) {
  QQmlComponent component(&engine, QUrl(u"qrc:/qt/qml/Orvella/Catalogue/CatalogueWindow.qml"_s));
  if (!component.isReady()) {
    qCritical("%s", qPrintable(component.errorString()));
    return nullptr;
  }
  std::unique_ptr<QObject> made(component.createWithInitialProperties(properties));
  auto* window = qobject_cast<QQuickWindow*>(made.get());
  if (window) (void)made.release();
  return std::unique_ptr<QQuickWindow>(window);
}

}  // namespace

std::unique_ptr<QQuickWindow> open(QQmlEngine& engine, const Sheet& sheet) {
  return openWith(engine, {{u"pages"_s, pages()}, {u"page"_s, sheet.page}, {u"popup"_s, sheet.popup}});
}

std::unique_ptr<QQuickWindow> openBare(QQmlEngine& engine, const Sheet& sheet, bool dark) {
  return openWith(engine, {{u"page"_s, sheet.page},
                           {u"popup"_s, sheet.popup},
                           {u"bare"_s, true},
                           {u"dark"_s, dark},
                           {u"reducedMotion"_s, true}});
}

}  // namespace orv::catalogue
