#pragma once

#include "demo/Door.h"

namespace orv::demo {

/// The requests about the leads that a workspace keeps: its lists, and which leads are its own.
class LeadListDoor {
 public:
  explicit LeadListDoor(const DoorContext& context) : m_context(context) {}

  /// `parts` is the path below the workspace. Nothing when there is no such call.
  std::optional<HTTPAnswer> answer(const DemoRequest& request, const QStringList& parts) const;

 private:
  HTTPAnswer lists(bool archived) const;
  HTTPAnswer own(const DemoRequest& request) const;

  DoorContext m_context;
};

}  // namespace orv::demo
