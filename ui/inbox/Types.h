#pragma once

#include <QtQml/qqml.h>

#include "app/inbox/AgentSettingsStore.h"
#include "app/inbox/DraftsStore.h"
#include "app/inbox/InboxStore.h"
#include "app/inbox/ShownMessages.h"

// Types of app/ by the names that pages use. They are registered here because app/ knows no QML.

namespace orv::qml {

struct AgentCampaignsType {
  Q_GADGET
  QML_FOREIGN(orv::AgentCampaigns)
  QML_NAMED_ELEMENT(AgentCampaigns)
  QML_UNCREATABLE("The application model owns it.")
};

struct AgentFormType {
  Q_GADGET
  QML_FOREIGN(orv::AgentForm)
  QML_NAMED_ELEMENT(AgentForm)
  QML_UNCREATABLE("The application model owns it.")
};

struct AgentLessonsType {
  Q_GADGET
  QML_FOREIGN(orv::AgentLessons)
  QML_NAMED_ELEMENT(AgentLessons)
  QML_UNCREATABLE("The application model owns it.")
};

struct AgentModeType {
  Q_GADGET
  QML_FOREIGN(orv::AgentMode)
  QML_NAMED_ELEMENT(AgentMode)
  QML_UNCREATABLE("The application model owns it.")
};

struct AgentSettingsStoreType {
  Q_GADGET
  QML_FOREIGN(orv::AgentSettingsStore)
  QML_NAMED_ELEMENT(AgentSettingsStore)
  QML_UNCREATABLE("The application model owns it.")
};

struct DraftDecisionsType {
  Q_GADGET
  QML_FOREIGN(orv::DraftDecisions)
  QML_NAMED_ELEMENT(DraftDecisions)
  QML_UNCREATABLE("The application model owns it.")
};

struct DraftHistoryType {
  Q_GADGET
  QML_FOREIGN(orv::DraftHistory)
  QML_NAMED_ELEMENT(DraftHistory)
  QML_UNCREATABLE("The application model owns it.")
};

struct DraftLeftoversType {
  Q_GADGET
  QML_FOREIGN(orv::DraftLeftovers)
  QML_NAMED_ELEMENT(DraftLeftovers)
  QML_UNCREATABLE("The application model owns it.")
};

struct DraftQueueType {
  Q_GADGET
  QML_FOREIGN(orv::DraftQueue)
  QML_NAMED_ELEMENT(DraftQueue)
  QML_UNCREATABLE("The application model owns it.")
};

struct DraftReasonType {
  Q_GADGET
  QML_FOREIGN(orv::DraftReason)
  QML_NAMED_ELEMENT(DraftReason)
  QML_UNCREATABLE("The application model owns it.")
};

struct DraftsStoreType {
  Q_GADGET
  QML_FOREIGN(orv::DraftsStore)
  QML_NAMED_ELEMENT(DraftsStore)
  QML_UNCREATABLE("The application model owns it.")
};

struct TrainingFeedbackType {
  Q_GADGET
  QML_FOREIGN(orv::TrainingFeedback)
  QML_NAMED_ELEMENT(TrainingFeedback)
  QML_UNCREATABLE("The application model owns it.")
};

struct ConversationType {
  Q_GADGET
  QML_FOREIGN(orv::Conversation)
  QML_NAMED_ELEMENT(Conversation)
  QML_UNCREATABLE("The application model owns it.")
};

struct InboxStoreType {
  Q_GADGET
  QML_FOREIGN(orv::InboxStore)
  QML_NAMED_ELEMENT(InboxStore)
  QML_UNCREATABLE("The application model owns it.")
};

struct ShownMessagesType {
  Q_GADGET
  QML_FOREIGN(orv::ShownMessages)
  QML_NAMED_ELEMENT(ShownMessages)
};

struct ThreadListType {
  Q_GADGET
  QML_FOREIGN(orv::ThreadList)
  QML_NAMED_ELEMENT(ThreadList)
  QML_UNCREATABLE("The application model owns it.")
};

struct WritingType {
  Q_GADGET
  QML_FOREIGN(orv::Writing)
  QML_NAMED_ELEMENT(Writing)
  QML_UNCREATABLE("The application model owns it.")
};

}  // namespace orv::qml
