#pragma once

#include <QtQml/qqml.h>

#include "app/leads/LeadsStore.h"

// Types of app/ by the names that pages use. They are registered here because app/ knows no QML.

namespace orv::qml {

struct LeadActionsType {
  Q_GADGET
  QML_FOREIGN(orv::LeadActions)
  QML_NAMED_ELEMENT(LeadActions)
  QML_UNCREATABLE("The application model owns it.")
};

struct LeadAllowanceType {
  Q_GADGET
  QML_FOREIGN(orv::LeadAllowance)
  QML_NAMED_ELEMENT(LeadAllowance)
  QML_UNCREATABLE("The application model owns it.")
};

struct LeadCardType {
  Q_GADGET
  QML_FOREIGN(orv::LeadCard)
  QML_NAMED_ELEMENT(LeadCard)
  QML_UNCREATABLE("The application model owns it.")
};

struct LeadFinderType {
  Q_GADGET
  QML_FOREIGN(orv::LeadFinder)
  QML_NAMED_ELEMENT(LeadFinder)
  QML_UNCREATABLE("The application model owns it.")
};

struct LeadListsType {
  Q_GADGET
  QML_FOREIGN(orv::LeadLists)
  QML_NAMED_ELEMENT(LeadLists)
  QML_UNCREATABLE("The application model owns it.")
};

struct LeadResultsType {
  Q_GADGET
  QML_FOREIGN(orv::LeadResults)
  QML_NAMED_ELEMENT(LeadResults)
  QML_UNCREATABLE("The application model owns it.")
};

struct LeadsStoreType {
  Q_GADGET
  QML_FOREIGN(orv::LeadsStore)
  QML_NAMED_ELEMENT(LeadsStore)
  QML_UNCREATABLE("The application model owns it.")
};

}  // namespace orv::qml
