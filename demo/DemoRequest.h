#pragma once

#include <QUrlQuery>

#include "kit/api/APITransport.h"

namespace orv::demo {

/// A request as the service reads it off the wire.
struct DemoRequest {
  QByteArray method;
  /// Decoded as a whole, for reading.
  QString path;
  /// What stands between the path's slashes, each decoded by itself: an id may hold a slash.
  QStringList parts;
  QUrlQuery query;
  /// Names in lower case.
  QMap<QByteArray, QByteArray> headers;
  QByteArray body;

  static DemoRequest parse(const QByteArray& method, const QByteArray& target,
                           const QList<QPair<QByteArray, QByteArray>>& headers, const QByteArray& body);

  /// The credential, from either place it may stand in.
  QString token() const;
  QString value(const QString& name) const { return query.queryItemValue(name, QUrl::FullyDecoded); }
  bool isSet(const QString& flag) const;
  /// It was made on another version of the record than it has.
  bool isMadeOnOther(qint64 version) const;
  /// How many items a page may have.
  qint64 limit(qint64 most) const;

  /// Nothing when the body is something else.
  template <class Body>
  std::optional<Body> bodyAs() const {
    try {
      return decodeJSON<Body>(body);
    } catch (const DecodeError&) {
      return std::nullopt;
    }
  }
};

/// Answers, as every part of the service gives them.
HTTPAnswer jsonAnswer(const QJsonObject& object, int status = 200);
HTTPAnswer emptyAnswer();
HTTPAnswer problemAnswer(int status, const QString& code, const QString& title, const QString& detail = {},
                         const QJsonObject& more = {});
HTTPAnswer notFound(const QString& title = QStringLiteral("There is nothing here"));
/// A refusal of what stands at `path` in the body or the query.
HTTPAnswer invalid(const QString& detail, const QString& path);

}  // namespace orv::demo
