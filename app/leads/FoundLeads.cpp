#include "app/leads/FoundLeads.h"

#include "app/leads/LeadWords.h"
#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(FoundLead)

namespace {

QString number(const std::optional<qint64>& count) { return count ? Format::grouped(*count) : QString(); }

QString hidden(const Lead& lead, const QString& text) { return LeadWords::isLocked(lead) ? QString() : text; }

}  // namespace

FoundLeadFacts::FoundLeadFacts(const Lead& lead) : name(LeadWords::name(lead)), place(LeadWords::place(lead)) {}

const FoundLeadsModel::Cells& FoundLeadsModel::cells() {
  static const Cells cells{
      {"name", [](auto&, auto& row) -> QVariant { return row.prepared().name; }},
      {"titleText", [](auto&, auto& row) -> QVariant { return row.record().title.value_or(QString()); }},
      {"locked", [](auto&, auto& row) -> QVariant { return LeadWords::isLocked(row.record()); }},
      {"emailText", [](auto&, auto& row) -> QVariant { return hidden(row.record(), row.record().email); }},
      {"providerText", [](auto&, auto& row) -> QVariant { return row.record().esp; }},
      {"locationText", [](auto&, auto& row) -> QVariant { return row.prepared().place; }},
      {"industryText", [](auto&, auto& row) -> QVariant { return row.record().industry.value_or(QString()); }},
      {"nicheText", [](auto&, auto& row) -> QVariant { return row.record().niche.value_or(QString()); }},
      {"phoneText",
       [](auto&, auto& row) -> QVariant { return hidden(row.record(), row.record().phone.value_or(QString())); }},
      {"revenueText", [](auto&, auto& row) -> QVariant { return LeadWords::revenue(row.record()); }},
      {"tierText", [](auto&, auto& row) -> QVariant { return row.record().icpTier.value_or(QString()); }},
      {"keywordsText", [](auto&, auto& row) -> QVariant { return row.record().keywords.value_or(QString()); }},
      {"technologiesText", [](auto&, auto& row) -> QVariant { return row.record().technologies.value_or(QString()); }},
      {"verifiedWord", [](auto&, auto& row) -> QVariant { return row.record().verification.rawValue; }},
      {"verifiedText", [](auto&, auto& row) -> QVariant { return LeadWords::verification(row.record().verification); }},
      {"addedText", [](auto&, auto& row) -> QVariant { return LeadWords::day(row.record().createdAt); }},
      {"companyText", [](auto&, auto& row) -> QVariant { return row.record().company.value_or(QString()); }},
      {"sizeText", [](auto&, auto& row) -> QVariant { return number(row.record().employees); }},
      {"followersText", [](auto&, auto& row) -> QVariant { return number(row.record().followers); }},
      {"linkedinText", [](auto&, auto& row) -> QVariant { return LeadWords::link(row.record().linkedinUrl); }},
      {"websiteText", [](auto&, auto& row) -> QVariant { return LeadWords::link(row.record().website); }},
      {"databaseText", [](auto&, auto& row) -> QVariant { return LeadWords::database(row.record().source); }},
  };
  return cells;
}

}  // namespace orv
