#pragma once

#include <QtQml/qqml.h>

#include "app/leads/LeadListStore.h"
#include "app/leads/LeadsStore.h"

// Types of app/ by the names that pages use. They are registered here because app/ knows no QML.

namespace orv::qml {

struct AddToCampaignType {
  Q_GADGET
  QML_FOREIGN(orv::AddToCampaign)
  QML_NAMED_ELEMENT(AddToCampaign)
  QML_UNCREATABLE("The application model owns it.")
};

struct AddToListType {
  Q_GADGET
  QML_FOREIGN(orv::AddToList)
  QML_NAMED_ELEMENT(AddToList)
  QML_UNCREATABLE("The application model owns it.")
};

struct CsvImportFormType {
  Q_GADGET
  QML_FOREIGN(orv::CsvImportForm)
  QML_NAMED_ELEMENT(CsvImportForm)
  QML_UNCREATABLE("The application model owns it.")
};

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

struct LeadExportType {
  Q_GADGET
  QML_FOREIGN(orv::LeadExport)
  QML_NAMED_ELEMENT(LeadExport)
  QML_UNCREATABLE("The application model owns it.")
};

struct LeadFinderType {
  Q_GADGET
  QML_FOREIGN(orv::LeadFinder)
  QML_NAMED_ELEMENT(LeadFinder)
  QML_UNCREATABLE("The application model owns it.")
};

struct LeadImportsType {
  Q_GADGET
  QML_FOREIGN(orv::LeadImports)
  QML_NAMED_ELEMENT(LeadImports)
  QML_UNCREATABLE("The application model owns it.")
};

struct LeadListActionsType {
  Q_GADGET
  QML_FOREIGN(orv::LeadListActions)
  QML_NAMED_ELEMENT(LeadListActions)
  QML_UNCREATABLE("The application model owns it.")
};

struct LeadListFormType {
  Q_GADGET
  QML_FOREIGN(orv::LeadListForm)
  QML_NAMED_ELEMENT(LeadListForm)
  QML_UNCREATABLE("The application model owns it.")
};

struct LeadListPickerType {
  Q_GADGET
  QML_FOREIGN(orv::LeadListPicker)
  QML_NAMED_ELEMENT(LeadListPicker)
  QML_UNCREATABLE("The application model owns it.")
};

struct LeadListsType {
  Q_GADGET
  QML_FOREIGN(orv::LeadLists)
  QML_NAMED_ELEMENT(LeadLists)
  QML_UNCREATABLE("The application model owns it.")
};

struct LeadListStoreType {
  Q_GADGET
  QML_FOREIGN(orv::LeadListStore)
  QML_NAMED_ELEMENT(LeadListStore)
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

struct FacetListType {
  Q_GADGET
  QML_FOREIGN(orv::FacetList)
  QML_NAMED_ELEMENT(FacetList)
  QML_UNCREATABLE("The application model owns it.")
};

struct LeadColumnsType {
  Q_GADGET
  QML_FOREIGN(orv::LeadColumns)
  QML_NAMED_ELEMENT(LeadColumns)
  QML_UNCREATABLE("The application model owns it.")
};

struct LeadFieldType {
  Q_GADGET
  QML_FOREIGN(orv::LeadField)
  QML_VALUE_TYPE(leadField)
};

struct LeadFiltersType {
  Q_GADGET
  QML_FOREIGN(orv::LeadFilters)
  QML_NAMED_ELEMENT(LeadFilters)
  QML_UNCREATABLE("The application model owns it.")
};

struct SavedSearchesType {
  Q_GADGET
  QML_FOREIGN(orv::SavedSearches)
  QML_NAMED_ELEMENT(SavedSearches)
  QML_UNCREATABLE("The application model owns it.")
};

}  // namespace orv::qml
