#pragma once

#include "demo/DemoService.h"
#include "kit/async/ManualClock.h"
#include "kit/models/campaigns/addLeads.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignLead.h"
#include "kit/models/campaigns/campaignLeadRequests.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/campaigns/campaignSummary.h"
#include "kit/models/campaigns/launchCheck.h"
#include "kit/session/authRequests.h"
#include "tests/support/await.h"

namespace orv::test {

/// The service in process, asked with the client's own requests and read with its own records.
struct DemoFixture {
  explicit DemoFixture(quint64 seed = 1, const demo::DemoScale& scale = {}) : service(clock, seed, scale) {
    session = service.signInDirectly();
  }

  ManualClock clock;
  demo::DemoService service;
  demo::DemoTransport api{service};
  NativeSession session;
  QString slug = QStringLiteral("northgate");

  template <class R>
  R ask(Request<R> request) {
    return await(api.send(std::move(request), slug, session.token));
  }
  /// How the request is refused. It must be.
  template <class R>
  APIError refusal(Request<R> request) {
    try {
      ask(std::move(request));
    } catch (const APIError& error) {
      return error;
    }
    QTest::qFail(qPrintable(request.label() + QStringLiteral(" was not refused")), __FILE__, __LINE__);
    return APIError::of(APIError::Kind::cancelled);
  }
  template <class R>
  QString refusalCode(Request<R> request) {
    return refusal(std::move(request)).code().value_or(QString());
  }

  /// The row of the live list, or of the archive.
  std::optional<CampaignSummary> row(const QString& id, bool archived = false) {
    for (const CampaignSummary& campaign : ask(Requests::listCampaigns(archived)).items)
      if (campaign.id == id) return campaign;
    return std::nullopt;
  }
  /// The campaign of the status with the fewest leads.
  QString idOf(const QString& status) {
    auto items = ask(Requests::listCampaigns(false)).items;
    items.removeIf([&status](const CampaignSummary& campaign) { return campaign.status.rawValue != status; });
    if (items.isEmpty()) qFatal("The sample has no such campaign");
    return std::ranges::min_element(items, {}, &CampaignSummary::leads)->id;
  }
  /// All leads, page by page.
  QList<CampaignLead> leads(const QString& id, Requests::LeadQuery query = {500, {}, false, {}}) {
    QList<CampaignLead> all;
    do {
      const LeadPage page = ask(Requests::listLeads(id, query));
      all += page.items;
      query.cursor = page.nextCursor;
    } while (query.cursor);
    return all;
  }
  Campaign launch(const QString& id, bool confirmed = true) {
    return ask(Requests::launchCampaign(id, LaunchBody{confirmed}));
  }
  /// Adds one person by hand.
  AddLeadsResult add(const QString& id, const QString& email, const QMap<QString, QString>& data = {},
                     const QString& dedupe = {}) {
    return ask(Requests::addLeads(id, {AddLeadsBody::Manual{email, data, dedupe}}));
  }
};

}  // namespace orv::test
