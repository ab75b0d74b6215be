#pragma once

#include "app/accounts/AccountActions.h"
#include "app/accounts/ConnectionForm.h"
#include "app/accounts/GoogleConnect.h"
#include "app/base/Recovery.h"

namespace orv {

/// The sentence of a request that was refused, or the one given where the service has none.
QString sentenceOr(const APIError& error, const QString& otherwise);

/// Adds sending inboxes, in one of three ways. It can be closed at any time: what was sent goes on, and a message tells
/// its end.
class AddAccount final : public Store {
  Q_OBJECT
  Q_PROPERTY(bool shown READ shown NOTIFY changed)
  Q_PROPERTY(bool busy READ busy NOTIFY changed)
  Q_PROPERTY(QString error READ error NOTIFY changed)
  Q_PROPERTY(QString way READ wayName NOTIFY changed)
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(bool canSubmit READ canSubmit NOTIFY changed)
  Q_PROPERTY(QString admin READ admin WRITE setAdmin NOTIFY changed)
  Q_PROPERTY(orv::ConnectionForm* connection READ connection CONSTANT)
  Q_PROPERTY(orv::GoogleConnect* google READ google CONSTANT)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)

 public:
  /// `none`: to be chosen yet.
  enum class Way { none, google, microsoft, smtp };
  Q_ENUM(Way)

  AddAccount(WorkspaceContext& context, AccountActions& actions, Store* whole = nullptr);

  bool shown() const { return m_form.shown(); }
  bool busy() const { return m_form.busy(); }
  QString error() const { return m_form.error(); }
  Way way() const { return m_way; }
  QString wayName() const { return enumName(m_way); }
  QString title() const;
  bool canSubmit() const;
  /// Who lets the service into a Google Workspace domain.
  const QString& admin() const { return m_admin; }
  void setAdmin(const QString& admin);
  ConnectionForm* connection() { return &m_connection; }
  GoogleConnect* google() { return &m_google; }
  Recovery* recovery() { return &m_recovery; }

  Q_INVOKABLE void show();
  /// By its name.
  Q_INVOKABLE void choose(const QString& way);
  /// To the three ways again; what was typed stays.
  Q_INVOKABLE void back();
  Q_INVOKABLE void cancel() { m_form.cancel(); }
  Q_INVOKABLE void submit();

  Task<void> submitTask();

 Q_SIGNALS:
  void changed();

 private:
  void follow();

  AccountActions& m_actions;
  BusySet m_busy;
  Actions m_requests;
  Form m_form;
  ConnectionForm m_connection;
  GoogleConnect m_google;
  Recovery m_recovery;
  Way m_way = Way::none;
  QString m_admin;
  bool m_wasShown = false;
};

}  // namespace orv
