#include "app/leads/LeadWords.h"

#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::LeadWords {

QString name(const Lead& lead) {
  const QString parts = QStringList{lead.firstName.value_or(QString()), lead.lastName.value_or(QString())}.join(u' ');
  for (const QString& name : {lead.fullName.value_or(QString()), parts, lead.instagramUsername.value_or(QString()),
                              isLocked(lead) ? QString() : lead.email})
    if (!name.trimmed().isEmpty()) return name.trimmed();
  return u"No name"_s;
}

QString place(const Lead& lead) {
  QStringList parts;
  for (const auto& part : {lead.city ? lead.city : lead.state, lead.country})
    if (part && !part->isEmpty()) parts.append(*part);
  return parts.join(u", "_s);
}

bool isLocked(const Lead& lead) { return lead.locked.value_or(false); }

QString verification(const LeadVerification& verification) {
  static const QMap<QString, QString> labels{{u"valid"_s, u"Valid"_s},
                                             {u"invalid"_s, u"Invalid"_s},
                                             {u"catch_all"_s, u"Catch-all"_s},
                                             {u"unknown"_s, u"Unknown"_s}};
  return labels.value(verification.rawValue, verification.rawValue);
}

QString database(const QString& source) {
  if (source == "linkedin"_L1) return u"LinkedIn"_s;
  return source == "instagram"_L1 ? u"Instagram"_s : source;
}

QString industryTitle(const QString& database) { return database == "instagram"_L1 ? u"Category"_s : u"Industry"_s; }

QString revenue(const Lead& lead) {
  const QString revenue = lead.annualRevenue.value_or(QString());
  return revenue.isEmpty() ? revenue : revenue + u" / yr"_s;
}

QString link(const std::optional<QString>& address) {
  QString text = address.value_or(QString());
  for (const auto prefix : {"https://"_L1, "http://"_L1, "www."_L1})
    if (text.startsWith(prefix)) text.remove(0, prefix.size());
  return text.endsWith(u'/') ? text.chopped(1) : text;
}

QString day(const std::optional<QString>& instant) {
  const auto at = parsePlatformDate(instant);
  return at ? Format::shortDate(at->toLocalTime().date()) : QString();
}

QString counted(qint64 count) { return Format::counted(count, u"lead"_s, u"leads"_s); }

QString matches(const LeadCount& count) {
  return (count.exact ? QString() : u"About "_s) + counted(count.value) + u" match"_s;
}

}  // namespace orv::LeadWords
