#pragma once

#include <QtQml/qqml.h>

#include "app/accounts/AccountDetail.h"
#include "app/accounts/AccountsStore.h"
#include "app/accounts/AddAccount.h"

// Types of app/ by the names that pages use. They are registered here because app/ knows no QML.

namespace orv::qml {

struct AccountActivityType {
  Q_GADGET
  QML_FOREIGN(orv::AccountActivity)
  QML_NAMED_ELEMENT(AccountActivity)
  QML_UNCREATABLE("The application model owns it.")
};

struct AccountBulkType {
  Q_GADGET
  QML_FOREIGN(orv::AccountBulk)
  QML_NAMED_ELEMENT(AccountBulk)
  QML_UNCREATABLE("The application model owns it.")
};

struct AccountDetailType {
  Q_GADGET
  QML_FOREIGN(orv::AccountDetail)
  QML_NAMED_ELEMENT(AccountDetail)
  QML_UNCREATABLE("The application model owns it.")
};

struct AccountSettingsType {
  Q_GADGET
  QML_FOREIGN(orv::AccountSettings)
  QML_NAMED_ELEMENT(AccountSettings)
  QML_UNCREATABLE("The application model owns it.")
};

struct AccountsStoreType {
  Q_GADGET
  QML_FOREIGN(orv::AccountsStore)
  QML_NAMED_ELEMENT(AccountsStore)
  QML_UNCREATABLE("The application model owns it.")
};

struct AddAccountType {
  Q_GADGET
  QML_FOREIGN(orv::AddAccount)
  QML_NAMED_ELEMENT(AddAccount)
  QML_UNCREATABLE("The application model owns it.")
};

struct ConnectionFormType {
  Q_GADGET
  QML_FOREIGN(orv::ConnectionForm)
  QML_NAMED_ELEMENT(ConnectionForm)
  QML_UNCREATABLE("The application model owns it.")
};

struct GoogleConnectType {
  Q_GADGET
  QML_FOREIGN(orv::GoogleConnect)
  QML_NAMED_ELEMENT(GoogleConnect)
  QML_UNCREATABLE("The application model owns it.")
};

struct ReconnectAccountType {
  Q_GADGET
  QML_FOREIGN(orv::ReconnectAccount)
  QML_NAMED_ELEMENT(ReconnectAccount)
  QML_UNCREATABLE("The application model owns it.")
};

}  // namespace orv::qml
