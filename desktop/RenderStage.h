#pragma once

#include <QImage>

#include "demo/DemoService.h"
#include "desktop/ClientWindow.h"
#include "desktop/MemoryKeychain.h"

namespace orv {

/// The sample's transport with trouble on demand.
class StagedTransport final : public APITransport {
 public:
  enum class Mode { passing, holding, failing, offline, empty };

  explicit StagedTransport(demo::DemoService& service) : m_demo(service) {}
  Mode mode = Mode::passing;
  std::unique_ptr<Exchange> exchange(APICall call, std::shared_ptr<AnswerReceiver> receiver) override;

 private:
  demo::DemoTransport m_demo;
};

/// A window of its own on the sample, to be brought into one state and photographed. Nothing of the desktop or of the
/// person's settings is touched.
class Stage {
 public:
  Stage(QQmlEngine& engine, bool signedIn, StagedTransport::Mode firstLoad, const QSize& size, bool dark,
        bool reducedMotion = true, int campaigns = 0);
  ~Stage();

  bool isReady() const { return m_window != nullptr; }
  AppModel& app() { return m_client->app(); }
  QQuickWindow& window() { return *m_window; }
  StagedTransport& transport() { return m_transport; }

  /// Straight to the window: keys of shortcuts, which the desktop's entrance matches, do nothing.
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {});
  void type(const QString& text);
  /// Runs the event loop until answers, animations and delays are through.
  void settle();
  QImage picture();

 private:
  class Desktop;

  SystemClock m_clock;
  demo::DemoService m_service;
  StagedTransport m_transport;
  MemoryKeychain m_keychain;
  std::unique_ptr<Desktop> m_desktop;
  std::unique_ptr<ClientWindow> m_client;
  QQuickWindow* m_window = nullptr;
};

}  // namespace orv
