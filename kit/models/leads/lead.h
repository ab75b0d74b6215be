#pragma once

#include <QList>

#include "kit/models/leads/leadCounts.h"
#include "kit/models/leads/leadVerification.h"

namespace orv {

/// A lead as a search finds it.
struct Lead {
  using Record = Lead;

  QString id;
  QString email;
  /// The address and the phone are hidden until the lead is unlocked.
  std::optional<bool> locked;
  /// The provider of the address.
  QString esp;
  LeadVerification verification;
  std::optional<QString> firstName;
  std::optional<QString> lastName;
  std::optional<QString> fullName;
  std::optional<QString> title;
  std::optional<QString> company;
  std::optional<QString> website;
  std::optional<QString> industry;
  std::optional<QString> niche;
  std::optional<qint64> employees;
  std::optional<QString> country;
  std::optional<QString> state;
  std::optional<QString> city;
  std::optional<QString> linkedinUrl;
  std::optional<QString> instagramUrl;
  std::optional<QString> instagramUsername;
  std::optional<qint64> followers;
  std::optional<QString> phone;
  /// The database it comes from.
  QString source;
  QString createdAt;
  std::optional<QString> annualRevenue;
  std::optional<QString> icpTier;
  std::optional<QString> keywords;
  std::optional<QString> technologies;
  std::optional<QString> dateVerified;
  bool operator==(const Lead&) const = default;
};
BOOST_DESCRIBE_STRUCT(Lead, (),
                      (id, email, locked, esp, verification, firstName, lastName, fullName, title, company, website,
                       industry, niche, employees, country, state, city, linkedinUrl, instagramUrl, instagramUsername,
                       followers, phone, source, createdAt, annualRevenue, icpTier, keywords, technologies,
                       dateVerified))

struct LeadSearchPage {
  QList<Lead> items;
  /// Absent on the last page.
  std::optional<QString> nextCursor;
  /// Of the whole search.
  LeadCount count;
  bool operator==(const LeadSearchPage&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadSearchPage, (), (items, nextCursor, count))

}  // namespace orv
