#pragma once

#include <QTest>

#include "app/campaigns/CampaignsStore.h"
#include "app/shell/AppModel.h"
#include "kit/api/APIClient.h"
#include "kit/models/campaigns/campaignSummary.h"
#include "kit/session/authRequests.h"
#include "tests/service/ServiceProcess.h"
#include "tests/support/AppFixture.h"
#include "tests/support/FakeNotifications.h"
#include "tests/support/await.h"

namespace orv::test {

inline const QString marensAddress = QStringLiteral("maren@northgate.example");
inline const QString tomasAddress = QStringLiteral("tomas@northgate.example");
inline const QString marensPassword = QStringLiteral("northgate-demo");

/// What outlives one run of the client: the desktop it runs on.
struct Desk {
  SystemClock clock;
  MemoryKeychain keychain;
  MemoryPreferences preferences;
  FakeBrowser browser;
  FakeClipboard clipboard;
  FakeFilePanel filePanel;
  FakeRevealer revealer;
  MemoryPressure memoryPressure;
  FakeNotifications notifications;
};

/// The real application against a service, from its start to its end. Only the desktop is faked.
class Client {
 public:
  Client(Desk& desk, const QUrl& service) : Client(desk, service, desk.preferences) {}
  Client(Desk& desk, const QUrl& service, Preferences& preferences)
      : m_api({service}, ClientIdentity::current(), APIClient::Limits()),
        m_app({m_api,
               desk.keychain,
               desk.clock,
               preferences,
               desk.browser,
               desk.clipboard,
               desk.filePanel,
               desk.revealer,
               desk.memoryPressure,
               service,
               Device{},
               std::nullopt,
               {},
               nullptr,
               nullptr,
               &desk.notifications}) {
    QObject::connect(&toasts(), &QAbstractItemModel::rowsInserted, &m_app, [this](const QModelIndex&, int row, int) {
      const auto& toast = toasts().toasts().at(row);
      m_told.append(toast.message);
      if (!toast.detail.isEmpty()) m_told.append(toast.detail);
    });
    m_app.start();
  }

  AppModel& app() { return m_app; }
  APIClient& api() { return m_api; }
  SignInModel& signIn() { return *m_app.signIn(); }
  Toasts& toasts() { return *m_app.toasts(); }
  CampaignsStore& campaigns() { return *m_app.session()->store<CampaignsStore>(); }
  QString token() const { return m_app.stored()->token; }
  /// Every toast's texts since the start.
  const QStringList& told() const { return m_told; }

  bool isSignedIn() const { return m_app.phase() == AppModel::Phase::signedIn; }
  /// Given by the service for the address that is typed.
  void enterEmail(const QString& email) {
    signIn().setEmail(email);
    signIn().submitEmail();
  }
  void signInWithPassword() {
    enterEmail(marensAddress);
    QTRY_COMPARE(signIn().step(), SignInModel::Step::password);
    signIn().setPassword(marensPassword);
    signIn().submitPassword();
    QTRY_VERIFY(isSignedIn());
  }
  /// As the page does.
  void showCampaigns() {
    campaigns().list()->appear();
    campaigns().ensureLoaded();
    QTRY_COMPARE(campaigns().list()->stateName(), ResourceBase::State::Ready);
  }
  const CampaignSummary* find(const QString& name) {
    for (const auto& campaign : campaigns().list()->value()->items)
      if (campaign.name == name) return &campaign;
    return nullptr;
  }
  /// Sends past the application, as another device of the same person would.
  template <class R>
  R sendElsewhere(Request<R> request, const QString& slug = QStringLiteral("northgate")) {
    return await(m_api.send(std::move(request), slug, token()));
  }
  /// How such a request fails, if it does.
  template <class R>
  std::optional<APIError> refusalElsewhere(Request<R> request, const QString& token) {
    try {
      await(m_api.send(std::move(request), QStringLiteral("northgate"), token));
    } catch (const APIError& error) {
      return error;
    }
    return std::nullopt;
  }

 private:
  APIClient m_api;
  AppModel m_app;
  QStringList m_told;
};

}  // namespace orv::test
