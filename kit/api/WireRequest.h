#pragma once

#include <QByteArray>
#include <QList>
#include <optional>

#include "kit/api/APIEnvironment.h"
#include "kit/api/APITransport.h"

namespace orv {

/// A call as it goes on the wire.
struct WireRequest {
  QByteArray method;
  QByteArray url;
  /// "Name: value" lines.
  QList<QByteArray> headers;
  std::optional<QByteArray> body;
  /// Changes something, so it must never share the fate of an old connection.
  bool changing = false;
  /// To this very machine, and by no proxy.
  bool staysHere = false;
  /// See APIRequest.
  qint64 answerAtMost = 0;
  /// See APIRequest.
  bool secret = false;
  /// See APIRequest.
  std::shared_ptr<std::atomic<qint64>> sent;
};

WireRequest wireRequest(const APICall& call, const APIEnvironment& environment, const ClientIdentity& identity);

}  // namespace orv
