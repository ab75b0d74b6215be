#pragma once

#include "demo/Routes.h"

namespace orv::demo {

/// What the doors of leads share.

constexpr qint64 mostLeadsPerPage = 500, mostFacets = 200, mostAtATime = 100'000;

/// Brings what goes on by itself up to now: files on their way in, leads added in the background, and what has waited
/// in the archive for long enough.
void settleLeads(Call& call);
void settleImports(DemoWorkspace& workspace, DemoRandom& random, const QDateTime& now);

/// The leads that a body means, the newest first: those of the ids that are there, or the first matches of the filter.
/// Nothing when it means none or too many at a time.
std::optional<QList<LeadPlace>> targetOf(const Call& call, const std::optional<QList<QString>>& ids,
                                         const std::optional<LeadFilterBody>& filter,
                                         const std::optional<qint64>& limit);

DemoLeadList& addList(DemoWorkspace& workspace, DemoRandom& random, const QString& name, const QString& by,
                      const QString& stamp);
/// Who makes the call, by name.
QString callerName(const Call& call);

}  // namespace orv::demo
