#pragma once

#include <QtQml/qqml.h>

#include "app/analytics/AnalyticsStore.h"
#include "app/analytics/DashboardStore.h"
#include "app/analytics/RangeForm.h"
#include "app/campaigns/CampaignLeads.h"
#include "app/campaigns/CampaignStatsStore.h"
#include "app/campaigns/CampaignStore.h"
#include "app/campaigns/CampaignsStore.h"
#include "app/shell/AppModel.h"
#include "app/shell/CommandPalette.h"
#include "app/shell/ListModel.h"
#include "app/shell/NameForm.h"
#include "app/shell/Resource.h"
#include "app/shell/WorkspaceSession.h"

// The application's types by the names that pages use. They are registered here because app/ knows no QML.

namespace orv::qml {

struct AnalyticsStoreType {
  Q_GADGET
  QML_FOREIGN(orv::AnalyticsStore)
  QML_NAMED_ELEMENT(AnalyticsStore)
  QML_UNCREATABLE("The application model owns it.")
};

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

struct ListModelType {
  Q_GADGET
  QML_FOREIGN(orv::ListModel)
  QML_NAMED_ELEMENT(OrvellaListModel)
  QML_UNCREATABLE("The application model owns it.")
};

struct CampaignLeadsType {
  Q_GADGET
  QML_FOREIGN(orv::CampaignLeads)
  QML_NAMED_ELEMENT(CampaignLeads)
  QML_UNCREATABLE("The application model owns it.")
};

struct CampaignStatsStoreType {
  Q_GADGET
  QML_FOREIGN(orv::CampaignStatsStore)
  QML_NAMED_ELEMENT(CampaignStatsStore)
  QML_UNCREATABLE("The application model owns it.")
};

struct CampaignSettingsType {
  Q_GADGET
  QML_FOREIGN(orv::CampaignSettings)
  QML_NAMED_ELEMENT(CampaignSettings)
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

struct CommandPaletteType {
  Q_GADGET
  QML_FOREIGN(orv::CommandPalette)
  QML_NAMED_ELEMENT(CommandPalette)
  QML_UNCREATABLE("The application model owns it.")
};

struct DashboardStoreType {
  Q_GADGET
  QML_FOREIGN(orv::DashboardStore)
  QML_NAMED_ELEMENT(DashboardStore)
  QML_UNCREATABLE("The application model owns it.")
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

struct NameFormType {
  Q_GADGET
  QML_FOREIGN(orv::NameForm)
  QML_NAMED_ELEMENT(NameForm)
  QML_UNCREATABLE("The application model owns it.")
};

struct OverlaysType {
  Q_GADGET
  QML_FOREIGN(orv::Overlays)
  QML_NAMED_ELEMENT(Overlays)
  QML_UNCREATABLE("The application model owns it.")
};

struct RangeFormType {
  Q_GADGET
  QML_FOREIGN(orv::RangeForm)
  QML_NAMED_ELEMENT(RangeForm)
  QML_UNCREATABLE("The application model owns it.")
};

struct ResourceBaseType {
  Q_GADGET
  QML_FOREIGN(orv::ResourceBase)
  QML_NAMED_ELEMENT(Resource)
  QML_UNCREATABLE("The application model owns it.")
};

struct RouterType {
  Q_GADGET
  QML_FOREIGN(orv::Router)
  QML_NAMED_ELEMENT(Router)
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

struct TestEmailFormType {
  Q_GADGET
  QML_FOREIGN(orv::TestEmailForm)
  QML_NAMED_ELEMENT(TestEmailForm)
  QML_UNCREATABLE("The application model owns it.")
};

struct SignInModelType {
  Q_GADGET
  QML_FOREIGN(orv::SignInModel)
  QML_NAMED_ELEMENT(SignInModel)
  QML_UNCREATABLE("The application model owns it.")
};

struct SubsequencesType {
  Q_GADGET
  QML_FOREIGN(orv::Subsequences)
  QML_NAMED_ELEMENT(Subsequences)
  QML_UNCREATABLE("The application model owns it.")
};

struct ToastsType {
  Q_GADGET
  QML_FOREIGN(orv::Toasts)
  QML_NAMED_ELEMENT(Toasts)
  QML_UNCREATABLE("The application model owns it.")
};

struct WorkspaceSessionType {
  Q_GADGET
  QML_FOREIGN(orv::WorkspaceSession)
  QML_NAMED_ELEMENT(WorkspaceSession)
  QML_UNCREATABLE("The application model owns it.")
};

}  // namespace orv::qml
