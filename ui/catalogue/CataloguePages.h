#pragma once

#include <QQmlEngine>
#include <QQuickWindow>
#include <memory>

namespace orv::catalogue {

/// One thing the catalogue shows: a page and, on the page of popups, which of them is open.
struct Sheet {
  QString page;
  QString popup;
  QString name() const { return popup.isEmpty() ? page : page + u'-' + popup; }
};

QList<Sheet> sheets();
QStringList pages();

/// Registers the modules that the catalogue needs.
void prepare(QQmlEngine& engine);
/// The catalogue's window on a sheet, hidden. Null when its QML does not load.
std::unique_ptr<QQuickWindow> open(QQmlEngine& engine, const Sheet& sheet);
/// The same without its navigation and without movement, for pictures and tests.
std::unique_ptr<QQuickWindow> openBare(QQmlEngine& engine, const Sheet& sheet, bool dark);

}  // namespace orv::catalogue
