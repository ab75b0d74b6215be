#pragma once

#include "app/accounts/AccountActions.h"
#include "app/accounts/AccountActivity.h"
#include "app/accounts/AccountSettings.h"
#include "app/accounts/ReconnectAccount.h"
#include "app/base/EnumName.h"

namespace orv {

/// One email account: what its page shows and does.
class AccountDetail final : public Store {
  Q_OBJECT
  Q_PROPERTY(QString id READ id CONSTANT)
  Q_PROPERTY(orv::ResourceBase* account READ account CONSTANT)
  Q_PROPERTY(QString address READ address NOTIFY changed)
  Q_PROPERTY(QString tab READ tabName WRITE setTab NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> tabs READ tabs CONSTANT)
  Q_PROPERTY(QString connectionState READ connectionState NOTIFY changed)
  Q_PROPERTY(QString connectionLabel READ connectionLabel NOTIFY changed)
  Q_PROPERTY(QString connectionError READ connectionError NOTIFY changed)
  Q_PROPERTY(QString lastCheck READ lastCheck NOTIFY changed)
  Q_PROPERTY(QString mainAction READ mainAction NOTIFY changed)
  Q_PROPERTY(bool busy READ busy NOTIFY busyChanged)
  Q_PROPERTY(bool copied READ copied NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> warmupFacts READ warmupFacts NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> connectionFacts READ connectionFacts NOTIFY changed)
  Q_PROPERTY(orv::AccountActivity* activity READ activity CONSTANT)
  Q_PROPERTY(orv::AccountSettings* settings READ settings CONSTANT)
  Q_PROPERTY(orv::ReconnectAccount* reconnect READ reconnect CONSTANT)

 public:
  enum class Tab { activity, settings };
  Q_ENUM(Tab)
  static constexpr std::chrono::seconds copiedShown{2};

  AccountDetail(QString id, WorkspaceContext& context, AccountActions& actions,
                AccountSettings::KnownTags knownTags = {});

  const QString& id() const { return m_id; }
  Resource<Mailbox>* account() { return &m_account; }
  /// Empty until loaded, as everything that comes from the account.
  QString address() const;
  Tab tab() const { return m_tab; }
  QString tabName() const { return enumName(m_tab); }
  /// By its name; another name changes nothing.
  void setTab(const QString& name);
  QList<Choice> tabs() const;
  /// "connected", "running" or "failed".
  QString connectionState() const;
  QString connectionLabel() const;
  QString connectionError() const;
  /// "Last check: today, 09:12".
  QString lastCheck() const;
  /// "check" where signing in anew is the admin's, else "reconnect".
  QString mainAction() const;
  bool busy() const { return m_actions.busy().contains(m_id); }
  /// The button says that the address was copied.
  bool copied() const { return m_copied; }
  /// What there is to know, with its value as detail.
  QList<Choice> warmupFacts() const;
  QList<Choice> connectionFacts() const;
  AccountActivity* activity() { return &m_activity; }
  AccountSettings* settings() { return &m_settings; }
  ReconnectAccount* reconnect() { return &m_reconnect; }

  PagePlace where() const override { return {.tab = tabName(), .value = {}}; }
  void goTo(const PagePlace& place) override { setTab(place.tab); }
  Q_INVOKABLE void openAccounts() { context().open(Page::accounts); }
  Q_INVOKABLE void openRampup() { context().openItem(Page::rampup, m_id); }
  Q_INVOKABLE void copyAddress();
  Q_INVOKABLE void beginReconnect();

  QStringList unsavedWork() const override;

 Q_SIGNALS:
  void changed();
  void busyChanged();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  void take(const Change<Mailbox>& change);
  Task<void> showCopied();

  QString m_id;
  AccountActions& m_actions;
  Resource<Mailbox> m_account;
  AccountActivity m_activity;
  AccountSettings m_settings;
  ReconnectAccount m_reconnect;
  Tab m_tab = Tab::activity;
  bool m_copied = false;
  TaskSlot m_copying;
};

}  // namespace orv
