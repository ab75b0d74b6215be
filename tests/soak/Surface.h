#pragma once

#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace orv::soak {

/// An object that QML reaches from a page's store by properties. What QML can reach is all there is on a page, so an
/// area that comes later is pressed and compared without a word about it here.
struct Part {
  /// The properties that lead to it; empty for the store itself.
  QString path;
  QObject* object;
  /// It stands in a dialog or drawer that is closed.
  bool isHidden = false;
};

QList<Part> partsOf(QObject& root);

/// What stands on a page: each property of its parts, each role of each row, rows by their ids. Closed dialogs do not.
using Reading = QMap<QString, QString>;

Reading readingOf(QObject& root);

/// A line for each field where they differ.
QStringList differences(const Reading& shown, const Reading& held);

/// Ids of a model's rows, empty where its rows have none.
QStringList idsOf(const QObject& model);

/// A property's value when the object has one of that name.
QVariant valueOf(const QObject& object, const char* property, const QVariant& otherwise = {});

/// The keys of the choices among the object's properties, all together or of the property of that name.
QStringList choicesOf(const QObject& object, const QByteArray& property = {});

}  // namespace orv::soak
