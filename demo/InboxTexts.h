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
const QList<Talk>& talks();
/// One that means the label; the first where there is none.
const Talk& talkOf(const QString& label);

/// The answer in another style.
QString inStyle(const QString& answer, const QString& style);

/// Rules that the agent draws from what members do with its drafts.
const QStringList& lessonTexts();

}  // namespace orv::demo
