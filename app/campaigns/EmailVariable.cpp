#include "app/campaigns/EmailVariable.h"

#include <algorithm>

#include "kit/models/campaigns/emailPreview.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// What every lead can have, whatever the service says of this campaign's.
const QList<std::pair<QString, QString>>& standardVariables() {
  static const QList<std::pair<QString, QString>> variables{
      {u"firstName"_s, u"First name"_s},
      {u"lastName"_s, u"Last name"_s},
      {u"email"_s, u"Email address"_s},
      {u"company"_s, u"Company"_s},
      {u"title"_s, u"Job title"_s},
      {u"website"_s, u"Website"_s},
      {u"accountSignature"_s, u"Signature of the sending inbox"_s}};
  return variables;
}

}  // namespace

QList<EmailVariable> emailVariables(const PreviewResponse* answer) {
  QList<EmailVariable> variables;
  for (const auto& [name, text] : standardVariables()) variables.append({.name = name, .text = text});
  if (!answer || !answer->variables) return variables;
  for (const auto& variable : *answer->variables) {
    const auto isThis = [&variable](const auto& known) { return known.first == variable.name; };
    if (std::ranges::any_of(standardVariables(), isThis)) continue;
    const bool isStandard = variable.standard.value_or(false);
    const QString text = variable.description.value_or(variable.value.value_or(QString()));
    variables.append({.name = variable.name, .text = text, .group = isStandard ? QString() : u"From your leads"_s});
  }
  return variables;
}

}  // namespace orv
