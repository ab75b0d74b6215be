#include "app/inbox/AgentFields.h"

#include "kit/api/wholeNumber.h"
#include "kit/models/inbox/inboxWords.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

std::optional<QString> filled(const QString& text) {
  return text.trimmed().isEmpty() ? std::nullopt : std::optional(text.trimmed());
}

struct FieldPlace {
  QString section;
  QString label;
};

const QHash<QString, FieldPlace>& places() {
  static const QHash<QString, FieldPlace> places{
      {u"repName"_s, {u"rep"_s, u"Rep name"_s}},
      {u"signatureName"_s, {u"rep"_s, u"Name for signature"_s}},
      {u"title"_s, {u"rep"_s, u"Title"_s}},
      {u"company"_s, {u"rep"_s, u"Company"_s}},
      {u"phone"_s, {u"rep"_s, u"Phone"_s}},
      {u"website"_s, {u"rep"_s, u"Website"_s}},
      {u"extra"_s, {u"rep"_s, u"Signature extra line"_s}},
      {u"tone"_s, {u"rep"_s, u"Tone"_s}},
      {u"knowledgeBase"_s, {u"knowledge"_s, u"Knowledge base"_s}},
      {u"instructions"_s, {u"instructions"_s, u"Instructions"_s}},
      {u"training"_s, {u"instructions"_s, u"Training"_s}},
      {u"bookingUrl"_s, {u"booking"_s, u"Booking link"_s}},
      {u"followupInterval"_s, {u"followups"_s, u"Wait between follow-ups, minutes"_s}},
      {u"followupMax"_s, {u"followups"_s, u"Follow-ups per chat"_s}}};
  return places;
}

}  // namespace

QString agentSectionOf(const QString& field) { return places().value(field).section; }

QString agentFieldLabel(const QString& field) { return places().value(field).label; }

AgentFields agentFields(const SetterSettings& settings) {
  const SetterSignature& signature = settings.signature;
  return {.repName = settings.repName,
          .signatureName = signature.name.value_or(QString()),
          .title = signature.title.value_or(QString()),
          .company = signature.company.value_or(QString()),
          .phone = signature.phone.value_or(QString()),
          .website = signature.website.value_or(QString()),
          .extra = signature.extra.value_or(QString()),
          .tone = settings.tone,
          .knowledgeBase = settings.knowledgeBase,
          .instructions = settings.instructions,
          .training = settings.training,
          .bookingUrl = settings.bookingUrl.value_or(QString()),
          .followupInterval = QString::number(settings.followupIntervalMinutes),
          .followupMax = QString::number(settings.followupMax)};
}

QVariantMap problemsIn(const AgentFields& typed, const AgentFields& base) {
  QVariantMap problems;
  const bool changesInterval = typed.followupInterval != base.followupInterval;
  if (changesInterval && !wholeNumber(typed.followupInterval, 1, mostFollowupMinutes))
    problems.insert(u"followupInterval"_s, u"Enter whole minutes, at least 1"_s);
  if (typed.followupMax != base.followupMax && !wholeNumber(typed.followupMax, 1, mostFollowups))
    problems.insert(u"followupMax"_s, u"1 to 4"_s);
  return problems;
}

SetterSettings settingsOf(const AgentFields& typed, const SetterSettings& loaded) {
  SetterSettings settings = loaded;
  const AgentFields base = agentFields(loaded);
  settings.repName = typed.repName.trimmed();
  // What nobody changed stays as it came, an empty text that is no text included.
  const auto part = [](std::optional<QString>& field, const QString& text, const QString& before) {
    if (text != before) field = filled(text);
  };
  part(settings.signature.name, typed.signatureName, base.signatureName);
  part(settings.signature.title, typed.title, base.title);
  part(settings.signature.company, typed.company, base.company);
  part(settings.signature.phone, typed.phone, base.phone);
  part(settings.signature.website, typed.website, base.website);
  part(settings.signature.extra, typed.extra, base.extra);
  part(settings.bookingUrl, typed.bookingUrl, base.bookingUrl);
  settings.tone = typed.tone;
  settings.knowledgeBase = typed.knowledgeBase;
  settings.instructions = typed.instructions;
  settings.training = typed.training;
  settings.followupIntervalMinutes =
      wholeNumber(typed.followupInterval, 1, mostFollowupMinutes).value_or(loaded.followupIntervalMinutes);
  settings.followupMax = wholeNumber(typed.followupMax, 1, mostFollowups).value_or(loaded.followupMax);
  return settings;
}

QList<Choice> toneChoices(const QString& stored) {
  QList<Choice> choices{{.key = words::toneFriendly, .label = u"Friendly"_s},
                        {.key = words::toneProfessional, .label = u"Professional"_s},
                        {.key = words::toneCasual, .label = u"Casual"_s}};
  const bool known = std::ranges::any_of(choices, [&](const Choice& choice) { return choice.key == stored; });
  if (!known && !stored.isEmpty()) choices.append({.key = stored, .label = stored});
  return choices;
}

}  // namespace orv
