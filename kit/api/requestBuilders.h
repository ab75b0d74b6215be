#pragma once

#include <QJsonDocument>
#include <QJsonObject>

#include "kit/api/APIRequest.h"

/// What the request catalogues are made of.
namespace orv::Requests {

/// What answers may come to that hold a whole workspace at once, and files.
inline constexpr qint64 wholeListAtMost = 64LL << 20, fileAtMost = 256LL << 20;

template <class R>
Request<R> get(QString path, QList<QueryItem> query = {}) {
  Request<R> request;
  if constexpr (std::is_same_v<R, RawData>) request.answerAtMost = fileAtMost;
  request.path = std::move(path);
  request.query = std::move(query);
  return request;
}

/// A request that changes something: always with a key of its own, so that the service knows a repetition.
template <class R>
Request<R> changing(HTTPMethod method, QString path, std::optional<QByteArray> body = {}) {
  Request<R> request;
  request.method = method;
  request.path = std::move(path);
  request.body = std::move(body);
  request.idempotencyKey = freshIdempotencyKey();
  return request;
}

template <class R>
Request<R> changing(HTTPMethod method, QString path, const QJsonObject& body) {
  return changing<R>(method, std::move(path), QJsonDocument(body).toJson(QJsonDocument::Compact));
}

/// A flag is "1" or left out.
inline void addFlag(QList<QueryItem>& query, const QString& name, bool set) {
  if (set) query.append({name, QStringLiteral("1")});
}

inline void addOptional(QList<QueryItem>& query, const QString& name, const std::optional<QString>& value) {
  if (value) query.append({name, *value});
}

}  // namespace orv::Requests
