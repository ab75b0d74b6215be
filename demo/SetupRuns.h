#pragma once

#include "demo/Routes.h"

namespace orv::demo {

/// Whatever was due by now has happened in the workspace's runs.
void advanceSetup(Call& call);

DemoSetupRun newRun(Call& call, const NewSetupRunBody& body);
void pauseRun(DemoSetupRun& run, const QDateTime& now);
void resumeRun(DemoSetupRun& run, const QDateTime& now);
void terminateRun(DemoSetupRun& run, const QDateTime& now);
/// What failed or was stopped begins anew, on the one domain or on all.
void retryRun(DemoSetupRun& run, const QString& domain, const QDateTime& now);

/// The newest of the project; null when it has none.
DemoSetupRun* latestRun(DemoWorkspace& workspace, const QString& projectId);
/// The project as everybody is told of it, its last run counted.
SetupProject shownProject(DemoWorkspace& workspace, const DemoSetupProject& project);
DomainChecks checksOf(const DemoSetupRun& run, const QString& domain, bool hasPhoto);

/// Of a project whose names are given; what is blank is made of them.
QStringList setupAddresses(const SetupRunSettings& settings, const QString& domain);

/// Projects as a workspace has them, with a run that ended and one that was paused.
void addSetup(DemoWorkspace& workspace, const QDate& today);

}  // namespace orv::demo
