#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

struct LeadSearch;

/// A search as bodies carry it.
struct LeadFilterBody {
  std::optional<QString> q;
  std::optional<QString> qin;
  std::optional<QList<QString>> title;
  std::optional<QList<QString>> company;
  std::optional<QList<QString>> industry;
  std::optional<QList<QString>> niche;
  std::optional<QList<QString>> country;
  std::optional<QList<QString>> state;
  std::optional<QList<QString>> city;
  std::optional<QList<QString>> esp;
  std::optional<QList<QString>> verification;
  std::optional<QList<QString>> source;
  std::optional<QList<qint64>> band;
  std::optional<QString> domain;
  std::optional<bool> hasPhone;
  std::optional<qint64> followersMin;
  std::optional<qint64> followersMax;
  std::optional<QString> list;
  std::optional<QString> campaign;
  /// Left out unless the search names its pool, whatever its query says.
  std::optional<QString> only;
  std::optional<QString> xq;
  std::optional<QList<QString>> xtitle;
  std::optional<QList<QString>> xcompany;
  std::optional<QList<QString>> xindustry;
  std::optional<QList<QString>> xniche;
  std::optional<QList<QString>> xcountry;
  std::optional<QList<QString>> xstate;
  std::optional<QList<QString>> xcity;
  std::optional<QList<QString>> xesp;
  std::optional<QList<QString>> xverification;
  std::optional<QList<qint64>> xband;
  std::optional<QList<QString>> tech;
  std::optional<QList<QString>> xtech;
  std::optional<QList<qint64>> revenue;
  std::optional<QList<QString>> funding;
  std::optional<QList<QString>> seniority;
  std::optional<QList<QString>> department;
  bool operator==(const LeadFilterBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadFilterBody, (),
                      (q, qin, title, company, industry, niche, country, state, city, esp, verification, source, band,
                       domain, hasPhone, followersMin, followersMax, list, campaign, only, xq, xtitle, xcompany,
                       xindustry, xniche, xcountry, xstate, xcity, xesp, xverification, xband, tech, xtech, revenue,
                       funding, seniority, department))

LeadFilterBody filterBody(const LeadSearch& search);

}  // namespace orv
