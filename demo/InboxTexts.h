#pragma once

#include <QList>
#include <QString>

namespace orv::demo {

/// What leads answer, and what the agent makes of it. {name} is the lead's first name, {company} theirs.
struct Talk {
  /// Empty where the agent finds none.
  QString label;
  QString kind;
  QString said;
  /// The agent's answer; empty where it has none to give.
  QString answer;
  QString reason;
  /// Why the answer is held back, if it is.
  QString gateCode{};
  QString gate{};
};
/// Whatever the campaign was about; what interests somebody is the pitch's.
const QList<Talk>& talks();

/// The answer in another style.
QString inStyle(const QString& answer, const QString& style);

/// Rules that the agent draws from what members do with its drafts.
const QStringList& lessonTexts();

}  // namespace orv::demo
