#pragma once

#include <QtQml/qqml.h>

#include "app/inbox/InboxStore.h"

// Types of app/ by the names that pages use. They are registered here because app/ knows no QML.

namespace orv::qml {

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
