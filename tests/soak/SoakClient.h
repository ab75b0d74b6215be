#pragma once

#include <QPointer>

#include "app/shell/AppModel.h"
#include "kit/api/APIClient.h"
#include "tests/soak/Surface.h"
#include "tests/support/AppFixture.h"
#include "tests/support/FakeNotifications.h"

namespace orv::soak {

/// Counts what is under way, and writes down what is sent.
class CountingTransport final : public APITransport {
 public:
  explicit CountingTransport(APITransport& api) : m_api(api) {}
  std::unique_ptr<Exchange> exchange(APICall call, std::shared_ptr<AnswerReceiver> receiver) override;

  bool isIdle() const { return m_underWay == 0; }
  int begun() const { return m_begun; }
  std::function<void(const QString& request)> onRequest;

 private:
  class Counted;

  APITransport& m_api;
  int m_underWay = 0;
  int m_begun = 0;
};

/// The whole application on a desktop that is faked, and a person before it, who sees what the open page shows.
class SoakClient final : public QObject {
 public:
  SoakClient(Clock& clock, const QUrl& service, const QString& folder);
  ~SoakClient() override;

  AppModel& app() { return *m_app; }
  CountingTransport& transport() { return m_transport; }
  test::FakeFilePanel& filePanel() { return m_filePanel; }
  MemoryPressure& memoryPressure() { return m_memoryPressure; }
  NetworkWatch& network() { return m_network; }

  bool isSignedIn() const { return m_app->phase() == AppModel::Phase::signedIn; }
  /// The next thing that somebody does who wants to be signed in.
  void signInFurther();
  /// The parts of the page in front; none while nobody is signed in.
  QList<Part> page() const;
  /// Whatever the page shows is on the screen from now on.
  void look();
  /// Forgets what the desktop remembers of what it was asked, which is no memory of the application's.
  void forget();

 private:
  void lookAway();

  APIClient m_api;
  CountingTransport m_transport{m_api};
  test::MemoryKeychain m_keychain;
  test::MemoryPreferences m_preferences;
  test::FakeBrowser m_browser;
  test::FakeClipboard m_clipboard;
  test::FakeFilePanel m_filePanel;
  test::FakeRevealer m_revealer;
  test::FakeNotifications m_notifications;
  MemoryPressure m_memoryPressure;
  NetworkWatch m_network;
  std::unique_ptr<AppModel> m_app;
  QList<QPointer<ResourceBase>> m_seen;
};

}  // namespace orv::soak
