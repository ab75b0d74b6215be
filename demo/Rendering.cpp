#include "demo/Rendering.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

const QRegularExpression& variablePattern() {
  static const QRegularExpression pattern(uR"(\{\{\s*([^{}]+?)\s*\}\})"_s);
  return pattern;
}

const QRegularExpression& optionsPattern() {
  static const QRegularExpression pattern(uR"((?<!\{)\{([^{}]*\|[^{}]*)\}(?!\}))"_s);
  return pattern;
}

/// The text with every match replaced by what `choose` makes of its first group.
template <class Choose>
QString replaced(const QString& text, const QRegularExpression& pattern, Choose choose) {
  QString result;
  qsizetype end = 0;
  for (auto matches = pattern.globalMatch(text); matches.hasNext();) {
    const auto match = matches.next();
    result += text.mid(end, match.capturedStart() - end) + choose(match.captured(1));
    end = match.capturedEnd();
  }
  return result + text.mid(end);
}

}  // namespace

const QStringList& standardVariables() {
  static const QStringList names{u"firstName"_s, u"lastName"_s, u"email"_s,           u"company"_s,
                                 u"title"_s,     u"website"_s,  u"accountSignature"_s};
  return names;
}

QMap<QString, QString> valuesOf(const CampaignLead& lead, const std::optional<CampaignSender>& sender) {
  QMap<QString, QString> values{{u"email"_s, lead.email}};
  const auto add = [&values](const QString& name, const std::optional<QString>& value) {
    if (value && !value->isEmpty()) values.insert(name, *value);
  };
  add(u"firstName"_s, lead.firstName);
  add(u"lastName"_s, lead.lastName);
  add(u"company"_s, lead.company);
  add(u"title"_s, lead.title);
  add(u"website"_s, lead.website);
  if (sender) add(u"accountSignature"_s, sender->signature.value_or(sender->displayName));
  if (!lead.data) return values;
  for (const auto& [name, value] : lead.data->asKeyValueRange())
    if (const auto* text = std::get_if<QString>(&value.storage())) add(name, *text);
  return values;
}

QStringList variablesIn(const QString& text) {
  QStringList names;
  for (auto matches = variablePattern().globalMatch(text); matches.hasNext();) names.append(matches.next().captured(1));
  names.removeDuplicates();
  return names;
}

Rendering render(const QString& text, const QMap<QString, QString>& values, DemoRandom random) {
  Rendering rendering;
  const QString filled = replaced(text, variablePattern(), [&](const QString& name) {
    if (!values.contains(name)) rendering.missing.append(name);
    return values.value(name);
  });
  rendering.missing.removeDuplicates();
  rendering.text = replaced(filled, optionsPattern(), [&random](const QString& options) {
    const QStringList list = options.split(u'|');
    return random.pick(list);
  });
  return rendering;
}

DemoRandom randomFor(const CampaignLead& lead, qint64 position) { return DemoRandom::of(lead.id, quint64(position)); }

namespace {

/// The one that the lead got; null when the sequence has no such email.
const CampaignVariant* variantOf(const DemoCampaign& campaign, const CampaignLead& lead, qint64 position) {
  const auto& steps = campaign.steps();
  if (position < 1 || position > steps.size() || steps[position - 1].variants.isEmpty()) return nullptr;
  const auto& variants = steps[position - 1].variants;
  // A lead got one even where all have been switched off since.
  return &variants[std::max<qsizetype>(0, pickVariant(variants, randomFor(lead, position)))];
}

QMap<QString, QString> valuesFor(const DemoCampaign& campaign, const CampaignLead& lead) {
  const auto& senders = campaign.senders();
  const auto sender = std::ranges::find(senders, lead.senderAddress.value_or(QString()), &CampaignSender::address);
  return valuesOf(lead, sender == senders.end() ? std::nullopt : std::optional(*sender));
}

}  // namespace

EmailHead headOf(const DemoCampaign& campaign, const CampaignLead& lead, qint64 position) {
  const auto& steps = campaign.steps();
  if (position < 1 || position > steps.size()) return {};
  qint64 opening = position;
  while (opening > 1 && steps[opening - 1].sameThread) --opening;
  const CampaignVariant *variant = variantOf(campaign, lead, position), *first = variantOf(campaign, lead, opening);
  EmailHead head;
  if (variant) head.variant = variant->label;
  if (!first) return head;
  const QString subject = render(first->subject, valuesFor(campaign, lead), randomFor(lead, opening)).text;
  head.subject = opening < position ? asReply(subject) : subject;
  return head;
}

QString bodyOf(const DemoCampaign& campaign, const CampaignLead& lead, qint64 position) {
  const CampaignVariant* variant = variantOf(campaign, lead, position);
  return variant ? render(variant->body, valuesFor(campaign, lead), randomFor(lead, position)).text : QString();
}

QString asReply(const QString& subject) {
  return subject.isEmpty() || subject.startsWith("Re:"_L1) ? subject : u"Re: "_s + subject;
}

QString withOptions(const QString& text) {
  static const QList<std::pair<QString, QString>> known{{u"Hi"_s, u"{Hi|Hello|Hey}"_s},
                                                        {u"Hello"_s, u"{Hello|Hi}"_s},
                                                        {u"could we"_s, u"{could we|can we}"_s},
                                                        {u"quick question"_s, u"{quick question|short question}"_s},
                                                        {u"Thanks"_s, u"{Thanks|Thank you|Many thanks}"_s},
                                                        {u"Best"_s, u"{Best|Kind regards|All the best}"_s}};
  // Only outside of braces: options inside options, or inside a variable, are no text any more.
  static const QRegularExpression outside(uR"(\{\{[^{}]*\}\}|\{[^{}]*\}|[^{]+|\{)"_s);
  QString result;
  for (auto matches = outside.globalMatch(text); matches.hasNext();) {
    QString piece = matches.next().captured();
    if (!piece.startsWith(u'{')) {
      for (const auto& [phrase, options] : known) {
        const QRegularExpression word(u"(?<![\\w|{])"_s + phrase + u"(?![\\w|}])"_s);
        piece.replace(word, options);
      }
    }
    result += piece;
  }
  return result;
}

}  // namespace orv::demo
