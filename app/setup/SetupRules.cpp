#include "app/setup/SetupRules.h"

#include <QHash>
#include <QSet>

#include "kit/api/Format.h"
#include "kit/api/wholeNumber.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

QString numberText(const std::optional<qint64>& number) { return number ? QString::number(*number) : QString(); }

void requireNumber(QVariantMap& problems, const QString& field, const QString& text, int most) {
  if (!text.trimmed().isEmpty() && !wholeNumber(text, 0, most))
    problems.insert(field, u"Enter a number from 0 to "_s + QString::number(most));
}

/// Left alone where it says the same, taken away where it says nothing.
Clearable<qint64> changedNumber(const QString& before, const QString& now, int most) {
  const auto was = wholeNumber(before, 0, most), is = wholeNumber(now, 0, most);
  if (was == is) return {};
  return is ? Clearable<qint64>(*is) : Clearable<qint64>::cleared();
}

Clearable<QString> changedName(const QString& before, const QString& now) {
  if (before.trimmed() == now.trimmed()) return {};
  return now.trimmed().isEmpty() ? Clearable<QString>::cleared() : Clearable<QString>(now.trimmed());
}

std::optional<QString> changedText(const QString& before, const QString& now) {
  return before == now ? std::nullopt : std::optional(now);
}

std::optional<QString> unlessEmpty(const QString& text) { return text.isEmpty() ? std::nullopt : std::optional(text); }

/// What stands around a domain when it is copied out of a mail or a list.
QString bare(QString piece) {
  while (!piece.isEmpty() && QStringView(u"<>\"'()[]").contains(piece.front())) piece.remove(0, 1);
  while (!piece.isEmpty() && QStringView(u"<>\"'()[].").contains(piece.back())) piece.chop(1);
  return piece.sliced(piece.lastIndexOf(u'@') + 1).toLower();
}

}  // namespace

SetupFields setupFieldsOf(const SetupProject& project) {
  return {project.admin,
          project.firstName,
          project.lastName,
          project.user2.value_or(QString()),
          project.user3.value_or(QString()),
          project.senderName,
          project.signature,
          numberText(project.dailyLimit),
          numberText(project.minWaitMinutes),
          project.tags,
          project.domains};
}

QString setupFieldLabel(const QString& field) {
  static const QHash<QString, QString> labels{{u"admin"_s, u"Admin username"_s}, {u"firstName"_s, u"First name"_s},
                                              {u"lastName"_s, u"Last name"_s},   {u"user2"_s, u"Inbox 2"_s},
                                              {u"user3"_s, u"Inbox 3"_s},        {u"senderName"_s, u"Sender name"_s},
                                              {u"signature"_s, u"Signature"_s},  {u"dailyLimit"_s, u"Daily limit"_s},
                                              {u"minWait"_s, u"Minimum wait"_s}, {u"tags"_s, u"Tags"_s},
                                              {u"domains"_s, u"Domains"_s}};
  return labels.value(field, field);
}

QVariantMap problemsIn(const SetupFields& fields) {
  QVariantMap problems;
  const auto requireUsername = [&problems](const QString& field, const QString& text) {
    const QString name = text.trimmed();
    if (!name.isEmpty() && !isSetupUsername(name))
      problems.insert(field, u"Letters, numbers, dots, dashes and underscores only"_s);
  };
  requireUsername(u"admin"_s, fields.admin);
  requireUsername(u"user2"_s, fields.user2);
  requireUsername(u"user3"_s, fields.user3);
  requireNumber(problems, u"dailyLimit"_s, fields.dailyLimit, mostSetupLimit);
  requireNumber(problems, u"minWait"_s, fields.minWait, mostSetupWait);
  return problems;
}

SetupProjectPatch patchBetween(const SetupFields& before, const SetupFields& now) {
  SetupProjectPatch patch;
  patch.admin = changedText(before.admin.trimmed(), now.admin.trimmed());
  patch.firstName = changedText(before.firstName.trimmed(), now.firstName.trimmed());
  patch.lastName = changedText(before.lastName.trimmed(), now.lastName.trimmed());
  patch.user2 = changedName(before.user2, now.user2);
  patch.user3 = changedName(before.user3, now.user3);
  patch.senderName = changedText(before.senderName.trimmed(), now.senderName.trimmed());
  patch.signature = changedText(before.signature, now.signature);
  patch.dailyLimit = changedNumber(before.dailyLimit, now.dailyLimit, mostSetupLimit);
  patch.minWaitMinutes = changedNumber(before.minWait, now.minWait, mostSetupWait);
  if (before.tags != now.tags) patch.tags = now.tags;
  if (before.domains != now.domains) patch.domains = now.domains;
  return patch;
}

NewSetupRunBody runOf(const SetupProject& project) {
  return {.mode = project.mode,
          .templateId = project.id,
          .domains = project.domains,
          .admin = project.admin,
          .user2 = unlessEmpty(project.user2.value_or(QString())),
          .user3 = unlessEmpty(project.user3.value_or(QString())),
          .firstName = unlessEmpty(project.firstName),
          .lastName = unlessEmpty(project.lastName),
          .senderName = project.senderName,
          .signature = project.signature,
          .dailyLimit = project.dailyLimit,
          .tags = project.tags,
          .minWaitMinutes = project.minWaitMinutes};
}

std::optional<RunProblem> runProblem(const SetupFields& fields, bool hasPassword, const QString& newPassword,
                                     RunAskedOn where) {
  if (fields.domains.isEmpty()) return RunProblem{u"domains"_s, u"Add at least one domain."_s};
  if (!hasPassword) {
    return RunProblem{u"password"_s, where == RunAskedOn::list
                                         ? u"No admin password. Type it on the project, then press Run."_s
                                         : u"No admin password. Type it under Google Admin, then press Run."_s};
  }
  if (fields.admin.trimmed().isEmpty()) return RunProblem{u"admin"_s, u"Type the admin username."_s};
  if (fields.firstName.trimmed().isEmpty()) return RunProblem{u"firstName"_s, u"Type the first and last name."_s};
  if (fields.lastName.trimmed().isEmpty()) return RunProblem{u"lastName"_s, u"Type the first and last name."_s};
  for (const auto& [field, name] :
       {std::pair(u"admin"_s, fields.admin), std::pair(u"user2"_s, fields.user2), std::pair(u"user3"_s, fields.user3)})
    if (!name.trimmed().isEmpty() && !isSetupUsername(name.trimmed()))
      return RunProblem{field, u"An inbox username isn’t valid."_s};
  if (!newPassword.isEmpty() && newPassword.size() < shortestNewPassword)
    return RunProblem{u"newPassword"_s, u"Google needs 8 characters or more."_s};
  return std::nullopt;
}

bool isSetupUsername(const QString& text) {
  static const QRegularExpression pattern(
      QRegularExpression::anchoredPattern(uR"((?!.*\.\.)[a-z0-9](?:[a-z0-9._-]{0,62}[a-z0-9])?)"_s));
  return pattern.match(text).hasMatch();
}

bool isSetupDomain(const QString& text) {
  static const QRegularExpression pattern(
      QRegularExpression::anchoredPattern(uR"((?=.{3,253}$)([a-z0-9]([a-z0-9-]{0,61}[a-z0-9])?\.)+[a-z]{2,63})"_s));
  return pattern.match(text).hasMatch();
}

PastedDomains pastedDomains(const QString& text) {
  static const QRegularExpression gaps(uR"([\s,;]+)"_s, QRegularExpression::UseUnicodePropertiesOption);
  PastedDomains pasted;
  QSet<QString> known;
  for (const QString& piece : text.split(gaps, Qt::SkipEmptyParts)) {
    const QString domain = bare(piece);
    if (!isSetupDomain(domain))
      pasted.others.append(piece);
    else if (!known.contains(domain)) {
      known.insert(domain);
      pasted.domains.append(domain);
    }
  }
  return pasted;
}

QString projectNameProblem(const QString& name) {
  if (name.size() >= shortestProjectName && name.size() <= longestProjectName) return {};
  return u"Keep it "_s + QString::number(shortestProjectName) + u" to "_s + QString::number(longestProjectName) +
         u" characters"_s;
}

QString runSummary(const std::optional<SetupLastRun>& run) {
  if (!run) return u"Not run yet"_s;
  if (run->control.isTerminated()) return u"Stopped"_s;
  if (run->isOpen()) return run->control.isPaused() ? u"Paused"_s : u"Running"_s;
  return run->failed > 0 ? Format::grouped(run->failed) + u" failed"_s : u"Complete"_s;
}

QString runSummaryTone(const std::optional<SetupLastRun>& run) {
  if (!run || run->control.isTerminated()) return u"neutral"_s;
  if (run->isOpen()) return run->control.isPaused() ? u"warning"_s : u"accent"_s;
  return run->failed > 0 ? u"negative"_s : u"positive"_s;
}

SetupLastRun countedRun(const SetupRun& run) {
  SetupLastRun counted{run.id, run.createdAt, run.rows.size(), 0, 0, 0, run.control};
  for (const SetupRow& row : run.rows) {
    counted.connected += row.state.isDone();
    counted.failed += row.state.isError();
    counted.running += !row.state.isEnd();
  }
  return counted;
}

}  // namespace orv
