#pragma once

#include <QtQml/qqml.h>

#include "app/shell/AppModel.h"
#include "app/shell/Appearance.h"
#include "app/shell/CommandPalette.h"
#include "app/shell/Commands.h"
#include "app/shell/Notifier.h"
#include "app/shell/OpenPage.h"
#include "app/shell/ProgramModel.h"
#include "app/shell/Router.h"
#include "app/shell/SignInModel.h"
#include "app/shell/WorkspaceSession.h"

// Types of app/ by the names that pages use. They are registered here because app/ knows no QML.

namespace orv::qml {

struct AppModelType {
  Q_GADGET
  QML_FOREIGN(orv::AppModel)
  QML_NAMED_ELEMENT(AppModel)
  QML_UNCREATABLE("The application model owns it.")
};

struct AppearanceType {
  Q_GADGET
  QML_FOREIGN(orv::Appearance)
  QML_NAMED_ELEMENT(Appearance)
  QML_UNCREATABLE("The application model owns it.")
};

struct CommandPaletteType {
  Q_GADGET
  QML_FOREIGN(orv::CommandPalette)
  QML_NAMED_ELEMENT(CommandPalette)
  QML_UNCREATABLE("The application model owns it.")
};

struct NotifierType {
  Q_GADGET
  QML_FOREIGN(orv::Notifier)
  QML_NAMED_ELEMENT(Notifier)
  QML_UNCREATABLE("The application model owns it.")
};

struct CommandsType {
  Q_GADGET
  QML_FOREIGN(orv::Commands)
  QML_NAMED_ELEMENT(Commands)
  QML_UNCREATABLE("The application model owns it.")
};

struct DepartureType {
  Q_GADGET
  QML_FOREIGN(orv::Departure)
  QML_NAMED_ELEMENT(Departure)
  QML_UNCREATABLE("The application model owns it.")
};

struct OpenPageType {
  Q_GADGET
  QML_FOREIGN(orv::OpenPage)
  QML_NAMED_ELEMENT(OpenPage)
  QML_UNCREATABLE("The application model owns it.")
};

struct PageEntryType {
  Q_GADGET
  QML_FOREIGN(orv::PageEntry)
  QML_VALUE_TYPE(pageEntry)
};

struct ProgramModelType {
  Q_GADGET
  QML_FOREIGN(orv::ProgramModel)
  QML_NAMED_ELEMENT(ProgramModel)
  QML_UNCREATABLE("The application model owns it.")
};

struct RouterType {
  Q_GADGET
  QML_FOREIGN(orv::Router)
  QML_NAMED_ELEMENT(Router)
  QML_UNCREATABLE("The application model owns it.")
};

struct SignInModelType {
  Q_GADGET
  QML_FOREIGN(orv::SignInModel)
  QML_NAMED_ELEMENT(SignInModel)
  QML_UNCREATABLE("The application model owns it.")
};

struct WorkspaceSessionType {
  Q_GADGET
  QML_FOREIGN(orv::WorkspaceSession)
  QML_NAMED_ELEMENT(WorkspaceSession)
  QML_UNCREATABLE("The application model owns it.")
};

}  // namespace orv::qml
