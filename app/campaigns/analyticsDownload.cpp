#include "app/campaigns/analyticsDownload.h"

#include "app/base/SaveFile.h"
#include "app/figures/AnalyticsCsv.h"
#include "app/figures/DateRange.h"
#include "app/figures/MetricFigures.h"
#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"
#include "kit/models/analytics/analyticsRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// The campaign's name as a file's: words in lower case joined by "-". Whatever is neither letter nor digit parts
/// words, so that no name can leave the chosen folder.
QString analyticsFileName(const QString& name) {
  QString slug;
  for (const QChar c : name.toLower()) {
    if (c.isLetterOrNumber() || c.isMark() || c.isSurrogate())
      slug += c;
    else if (!slug.isEmpty() && !slug.endsWith(u'-'))
      slug += u'-';
  }
  if (slug.endsWith(u'-')) slug.chop(1);
  return (slug.isEmpty() ? u"campaign"_s : slug) + u"-analytics.csv"_s;
}

}  // namespace

Task<void> downloadAnalyticsOf(CampaignSummary campaign, WorkspaceContext* context, Actions* actions) {
  Toasts& toasts = context->services().toasts;
  const QDate today = localToday(context->services().clock);
  const auto created = parsePlatformDate(campaign.createdAt);
  const QDate from = created ? created->toLocalTime().date() : today;
  const QString failure = u"Couldn’t download the analytics."_s;
  const auto summary = co_await actions->send(
      Requests::analyticsSummary(Format::calendarDay(from), Format::calendarDay(today), campaign.id), failure);
  if (!summary) co_return;
  auto rows = asTracked(*summary).campaigns;
  rows.removeIf([&campaign](const auto& row) { return row.id != campaign.id; });
  if (rows.isEmpty()) {
    toasts.show({.message = u"Nothing to export yet."_s});
    co_return;
  }
  co_await saveCsv(
      *context, analyticsFileName(campaign.name), [rows] { return campaignsCsv(rows); }, failure);
}

}  // namespace orv
