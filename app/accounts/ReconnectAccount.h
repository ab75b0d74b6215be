#pragma once

#include "app/accounts/AccountActions.h"
#include "app/accounts/ConnectionForm.h"
#include "app/base/Form.h"
#include "app/base/Recovery.h"

namespace orv {

/// Gives an account a new sign-in.
class ReconnectAccount final : public Store {
  Q_OBJECT
  Q_PROPERTY(bool shown READ shown NOTIFY changed)
  Q_PROPERTY(bool busy READ busy NOTIFY changed)
  Q_PROPERTY(QString error READ error NOTIFY changed)
  Q_PROPERTY(QString address READ address NOTIFY changed)
  Q_PROPERTY(bool canSubmit READ canSubmit NOTIFY changed)
  Q_PROPERTY(orv::ConnectionForm* connection READ connection CONSTANT)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)

 public:
  ReconnectAccount(WorkspaceContext& context, AccountActions& actions, Store* whole);

  bool shown() const { return m_form.shown(); }
  bool busy() const { return m_form.busy(); }
  QString error() const { return m_form.error(); }
  const QString& address() const { return m_account.address; }
  bool canSubmit() const;
  ConnectionForm* connection() { return &m_connection; }
  Recovery* recovery() { return &m_recovery; }

  void show(const Mailbox& account);
  Q_INVOKABLE void cancel() { m_form.cancel(); }
  Q_INVOKABLE void submit();

  Task<void> submitTask();

 Q_SIGNALS:
  void changed();

 private:
  void follow();

  AccountActions& m_actions;
  Actions m_requests;
  Form m_form;
  ConnectionForm m_connection;
  Recovery m_recovery;
  /// As it was when the dialog was opened.
  Mailbox m_account;
};

}  // namespace orv
