#pragma once

#include <QRegularExpression>
#include <QStringList>
#include <QVariantMap>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/models/setup/setupChanges.h"
#include "kit/models/setup/setupProject.h"
#include "kit/models/setup/setupRun.h"

namespace orv {

inline constexpr qsizetype shortestProjectName = 2, longestProjectName = 80, shortestNewPassword = 8;
inline constexpr int mostSetupLimit = 2000, mostSetupWait = 1440;

/// A project as it is typed, without what is secret: these fields are kept in the journal. Numbers are the texts that
/// they are.
struct SetupFields {
  QString admin;
  QString firstName;
  QString lastName;
  QString user2;
  QString user3;
  QString senderName;
  QString signature;
  QString dailyLimit;
  QString minWait;
  QStringList tags;
  QStringList domains;
  bool operator==(const SetupFields&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetupFields, (),
                      (admin, firstName, lastName, user2, user3, senderName, signature, dailyLimit, minWait, tags,
                       domains))

SetupFields setupFieldsOf(const SetupProject& project);
/// As the form calls the field.
QString setupFieldLabel(const QString& field);
/// A sentence for each field that cannot be saved as it is.
QVariantMap problemsIn(const SetupFields& fields);
/// What of it is other than before; the secrets are not among it.
SetupProjectPatch patchBetween(const SetupFields& before, const SetupFields& now);
/// What a run of the project is started with.
NewSetupRunBody runOf(const SetupProject& project);

/// Where a run is asked for: the list does not show the fields.
enum class RunAskedOn { list, project };
struct RunProblem {
  QString field;
  QString sentence;
  bool operator==(const RunProblem&) const = default;
};
/// Why the project cannot run: the first of the rules that fails. `newPassword` is empty where none was typed.
std::optional<RunProblem> runProblem(const SetupFields& fields, bool hasPassword, const QString& newPassword,
                                     RunAskedOn where);

bool isSetupUsername(const QString& text);
/// Not the pattern of tracking hosts, whose lengths differ on purpose.
bool isSetupDomain(const QString& text);

struct PastedDomains {
  QStringList domains;
  /// What is no domain, as it was typed.
  QStringList others;
};
/// What a column of a sheet holds: a domain a line, or an address, whose domain it then is.
PastedDomains pastedDomains(const QString& text);

/// "Keep it 2 to 80 characters" for a name that is shorter or longer; empty for others.
QString projectNameProblem(const QString& name);
/// What "Export credentials" writes.
inline QString credentialsText() {
  return QStringLiteral("A CSV of every connected inbox with its password, for the sending tool.");
}
/// Why there is nothing to show, or to export.
inline QString nothingRan() { return QStringLiteral("Nothing has run yet."); }
/// "Not run yet", "Running", "2 failed".
QString runSummary(const std::optional<SetupLastRun>& run);
QString runSummaryTone(const std::optional<SetupLastRun>& run);
/// As the service would count it in its project.
SetupLastRun countedRun(const SetupRun& run);

}  // namespace orv
