#pragma once

#include "demo/DemoService.h"
#include "kit/api/PlatformDate.h"

namespace orv::demo {

/// What a request about a workspace is answered on.
struct DoorContext {
  DemoWorkspace& workspace;
  QDateTime now;
  DemoRandom& random;

  QString stamp() const { return formatPlatformDate(now); }
};

/// Archived campaigns and removed leads wait this long, then go for good.
constexpr int archiveDays = 30;

/// Whether what was archived at that instant has waited long enough.
bool isOverdue(const std::optional<QString>& archivedAt, const QDateTime& now);

/// A refusal of what stands at `path` in the body or the query.
HTTPAnswer invalid(const QString& detail, const QString& path);

/// The campaign as it now is, under its next version.
HTTPAnswer changed(DemoCampaign& campaign);

template <class Body>
std::optional<Body> bodyOf(const DemoRequest& request) {
  try {
    return decodeJSON<Body>(request.body);
  } catch (const DecodeError&) {
    return std::nullopt;
  }
}

}  // namespace orv::demo
