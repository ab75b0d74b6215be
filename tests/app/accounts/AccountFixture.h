#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include "app/accounts/AccountDetail.h"
#include "app/accounts/AddAccount.h"
#include "tests/support/AppFixture.h"

namespace orv::test {

/// One account's stores, and a service that is told what to say of it.
struct AccountFixture : AppFixture {
  AccountActions actions{*context};
  QString get = QStringLiteral("GET /mailboxes/m1"), history = QStringLiteral("GET /mailboxes/m1/history");

  /// "ana@a.example", with the connection's kind and status, the version and what else is given.
  static QByteArray mailbox(qint64 version, const QByteArray& more = {}, const QByteArray& status = "active",
                            const QByteArray& connection = R"("kind":"smtp_imap","status":"connected")") {
    return R"({"id":"m1","address":"ana@a.example","displayName":"Ana","provider":"smtp","role":"sender","status":")" +
           status + R"(","dailyCap":40,"createdAt":"2026-10-01T00:00:00Z","connection":{)" + connection +
           R"(},"warmup":{"sentToday":3,"receivedToday":0,"replies7d":0,"placed7d":0,"spam7d":0},"version":)" +
           QByteArray::number(version) + more + "}";
  }
  QJsonObject sentBody() const { return QJsonDocument::fromJson(api.last().request.body.value_or("{}")).object(); }
  QString lastToast() const { return toasts.toasts().isEmpty() ? QString() : toasts.toasts().last().message; }
  int asked(const QString& label) const {
    int count = 0;
    for (const APICall& call : api.sent()) count += call.request.label() == label;
    return count;
  }
};

}  // namespace orv::test
