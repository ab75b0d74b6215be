#pragma once

#include <QtQml/qqml.h>

#include "app/campaigns/CampaignLeads.h"
#include "app/campaigns/CampaignStatsStore.h"
#include "app/campaigns/CampaignStore.h"
#include "app/campaigns/CampaignsStore.h"
#include "app/campaigns/EmailVariable.h"

// Types of app/ by the names that pages use. They are registered here because app/ knows no QML.

namespace orv::qml {

struct CampaignLeadsType {
  Q_GADGET
  QML_FOREIGN(orv::CampaignLeads)
  QML_NAMED_ELEMENT(CampaignLeads)
  QML_UNCREATABLE("The application model owns it.")
};

struct CampaignSettingsType {
  Q_GADGET
  QML_FOREIGN(orv::CampaignSettings)
  QML_NAMED_ELEMENT(CampaignSettings)
  QML_UNCREATABLE("The application model owns it.")
};

struct CampaignStatsStoreType {
  Q_GADGET
  QML_FOREIGN(orv::CampaignStatsStore)
  QML_NAMED_ELEMENT(CampaignStatsStore)
  QML_UNCREATABLE("The application model owns it.")
};

struct CampaignStoreType {
  Q_GADGET
  QML_FOREIGN(orv::CampaignStore)
  QML_NAMED_ELEMENT(CampaignStore)
  QML_UNCREATABLE("The application model owns it.")
};

struct CampaignsStoreType {
  Q_GADGET
  QML_FOREIGN(orv::CampaignsStore)
  QML_NAMED_ELEMENT(CampaignsStore)
  QML_UNCREATABLE("The application model owns it.")
};

struct EmailVariableType {
  Q_GADGET
  QML_FOREIGN(orv::EmailVariable)
  QML_VALUE_TYPE(emailVariable)
};

struct LeadAddingType {
  Q_GADGET
  QML_FOREIGN(orv::LeadAdding)
  QML_NAMED_ELEMENT(LeadAdding)
  QML_UNCREATABLE("The application model owns it.")
};

struct LeadMoveType {
  Q_GADGET
  QML_FOREIGN(orv::LeadMove)
  QML_NAMED_ELEMENT(LeadMove)
  QML_UNCREATABLE("The application model owns it.")
};

struct LeadPanelType {
  Q_GADGET
  QML_FOREIGN(orv::LeadPanel)
  QML_NAMED_ELEMENT(LeadPanel)
  QML_UNCREATABLE("The application model owns it.")
};

struct ProofWallType {
  Q_GADGET
  QML_FOREIGN(orv::ProofWall)
  QML_NAMED_ELEMENT(ProofWall)
  QML_UNCREATABLE("The application model owns it.")
};

struct ScheduleFormType {
  Q_GADGET
  QML_FOREIGN(orv::ScheduleForm)
  QML_NAMED_ELEMENT(ScheduleForm)
  QML_UNCREATABLE("The application model owns it.")
};

struct SenderPickerType {
  Q_GADGET
  QML_FOREIGN(orv::SenderPicker)
  QML_NAMED_ELEMENT(SenderPicker)
  QML_UNCREATABLE("The application model owns it.")
};

struct SequenceAutosaveType {
  Q_GADGET
  QML_FOREIGN(orv::SequenceAutosave)
  QML_NAMED_ELEMENT(SequenceAutosave)
  QML_UNCREATABLE("The application model owns it.")
};

struct SequenceDaysType {
  Q_GADGET
  QML_FOREIGN(orv::SequenceDays)
  QML_NAMED_ELEMENT(SequenceDays)
  QML_UNCREATABLE("The application model owns it.")
};

struct SequenceEditorType {
  Q_GADGET
  QML_FOREIGN(orv::SequenceEditor)
  QML_NAMED_ELEMENT(SequenceEditor)
  QML_UNCREATABLE("The application model owns it.")
};

struct SequencePreviewType {
  Q_GADGET
  QML_FOREIGN(orv::SequencePreview)
  QML_NAMED_ELEMENT(SequencePreview)
  QML_UNCREATABLE("The application model owns it.")
};

struct SubsequencesType {
  Q_GADGET
  QML_FOREIGN(orv::Subsequences)
  QML_NAMED_ELEMENT(Subsequences)
  QML_UNCREATABLE("The application model owns it.")
};

struct TestEmailFormType {
  Q_GADGET
  QML_FOREIGN(orv::TestEmailForm)
  QML_NAMED_ELEMENT(TestEmailForm)
  QML_UNCREATABLE("The application model owns it.")
};

}  // namespace orv::qml
