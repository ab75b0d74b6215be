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
/// The catalogue's window on a sheet, hidden; `bare` leaves its navigation out. Null when its QML does not load.
std::unique_ptr<QQuickWindow> open(QQmlEngine& engine, const Sheet& sheet, bool bare);
/// Chooses the theme that all windows of the engine show.
void setTheme(QQmlEngine& engine, bool dark, bool reducedMotion);

}  // namespace orv::catalogue
