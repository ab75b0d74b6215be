#pragma once

#include <QtQml/qqml.h>

#include "app/settings/SettingsStore.h"

// Types of app/ by the names that pages use. They are registered here because app/ knows no QML.

namespace orv::qml {

struct ClientFormType {
  Q_GADGET
  QML_FOREIGN(orv::ClientForm)
  QML_NAMED_ELEMENT(ClientForm)
  QML_UNCREATABLE("The application model owns it.")
};

struct InviteFormType {
  Q_GADGET
  QML_FOREIGN(orv::InviteForm)
  QML_NAMED_ELEMENT(InviteForm)
  QML_UNCREATABLE("The application model owns it.")
};

struct InvitesStoreType {
  Q_GADGET
  QML_FOREIGN(orv::InvitesStore)
  QML_NAMED_ELEMENT(InvitesStore)
  QML_UNCREATABLE("The application model owns it.")
};

struct MembersStoreType {
  Q_GADGET
  QML_FOREIGN(orv::MembersStore)
  QML_NAMED_ELEMENT(MembersStore)
  QML_UNCREATABLE("The application model owns it.")
};

struct OutreachListsType {
  Q_GADGET
  QML_FOREIGN(orv::OutreachLists)
  QML_NAMED_ELEMENT(OutreachLists)
  QML_UNCREATABLE("The application model owns it.")
};

struct SettingsStoreType {
  Q_GADGET
  QML_FOREIGN(orv::SettingsStore)
  QML_NAMED_ELEMENT(SettingsStore)
  QML_UNCREATABLE("The application model owns it.")
};

struct WorkspaceFormType {
  Q_GADGET
  QML_FOREIGN(orv::WorkspaceForm)
  QML_NAMED_ELEMENT(WorkspaceForm)
  QML_UNCREATABLE("The application model owns it.")
};

}  // namespace orv::qml
