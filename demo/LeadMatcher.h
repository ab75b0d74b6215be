#pragma once

#include <QStringList>

#include "kit/models/leads/leadFilter.h"

namespace orv::demo {

/// What leads can be found by, in the parts that many of them share.
struct CompanyFacts {
  QString company;
  QString industry;
  QString niche;
  QString country;
  QString state;
  QString city;
  QString esp;
  QString domain;
  QString keywords;
  QString funding;
  QStringList technologies;
  qint64 band = 0;
  qint64 revenue = 0;
};
struct TitleFacts {
  QString title;
  QString seniority;
  QString department;
};
struct PersonFacts {
  QString source;
  QString verification;
  bool hasPhone = false;
  std::optional<qint64> followers;
};

/// A filter, asked of each part by itself: all of them must fit. Lists, campaigns and pools are not its business.
class LeadMatcher {
 public:
  explicit LeadMatcher(const LeadFilterBody& filter);

  bool fits(const CompanyFacts& company) const;
  bool fits(const TitleFacts& title) const;
  bool fits(const PersonFacts& person) const;

  /// Phrases that stand in one of a lead's texts.
  class Keywords {
   public:
    Keywords(const std::optional<QString>& phrases, const QString& where);
    bool isEmpty() const { return m_phrases.isEmpty(); }
    bool areIn(const CompanyFacts& company) const;
    bool areIn(const TitleFacts& title) const;
    bool areInName(const QString& name) const { return stands(u"name", name); }

   private:
    bool stands(QStringView where, const QString& text) const;

    QStringList m_phrases;
    QString m_where;
  };
  const Keywords& wanted() const { return m_wanted; }
  const Keywords& unwanted() const { return m_unwanted; }

 private:
  LeadFilterBody m_filter;
  Keywords m_wanted;
  Keywords m_unwanted;
};

}  // namespace orv::demo
