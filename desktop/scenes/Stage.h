#pragma once

#include <QImage>
#include <functional>
#include <stdexcept>

#include "app/campaigns/CampaignsStore.h"
#include "demo/DemoService.h"
#include "desktop/ClientWindow.h"
#include "desktop/MemoryKeychain.h"
#include "desktop/scenes/StageTime.h"

namespace orv {

/// A transport with trouble on demand.
class StagedTransport final : public APITransport {
 public:
  enum class Mode { passing, holding, failing, offline, empty };

  explicit StagedTransport(APITransport& api) : m_api(api) {}
  Mode mode = Mode::passing;
  std::unique_ptr<Exchange> exchange(APICall call, std::shared_ptr<AnswerReceiver> receiver) override;

  /// Nobody waits for an answer, apart from those that are being held.
  bool isIdle() const { return m_underWay == 0; }
  /// Exchanges begun so far.
  int begun() const { return m_begun; }

 private:
  class Counted;

  APITransport& m_api;
  int m_underWay = 0;
  int m_begun = 0;
};

/// What a stage shows, and how.
struct StageSetting {
  bool signedIn = true;
  /// How the first load already fares.
  StagedTransport::Mode mode = StagedTransport::Mode::passing;
  QSize size{1280, 800};
  bool dark = false;
  bool reducedMotion = true;
  /// At least so many in the sample.
  int campaigns = 0;
  int mailboxes = 0;
  /// Another service in place of the sample, with a session of it.
  APITransport* service = nullptr;
  std::optional<StoredSession> session = {};
  /// Where files go that are saved; without it whoever is asked for a place cancels.
  QString saveFolder = {};
};

/// What was to happen on a stage and did not.
class StageTrouble : public std::runtime_error {
 public:
  explicit StageTrouble(const QString& what) : std::runtime_error(what.toStdString()) {}
};

/// A window of its own on the sample, to be brought into one state and photographed. Nothing of the desktop or of the
/// person's settings is touched. What waits throws StageTrouble when it has waited long enough.
class Stage {
 public:
  /// With a time of its own, or in the machine's.
  Stage(QQmlEngine& engine, const StageSetting& setting, StageTime* time = nullptr);
  ~Stage();

  bool isReady() const { return m_window != nullptr; }
  AppModel& app() { return m_client->app(); }
  QQuickWindow& window() { return *m_window; }
  StagedTransport& transport() { return m_transport; }
  /// Opens their page; they are loaded unless the transport keeps them from it.
  CampaignsStore& openCampaigns();

  /// Straight to the window: keys of shortcuts, which the desktop's entrance matches, do nothing.
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {});
  void type(const QString& text);
  /// Presses, as a screen reader does, what has an accessible name that begins with these words.
  void press(const QString& name);
  /// Presses Tab until what has that name has the focus.
  void tabTo(const QString& name);

  /// Runs the event loop until nothing is under way and the frame of it is drawn. In a time of its own, waits, delays
  /// and movements of up to a second are through as well.
  void settle();
  /// Runs it until then, whatever else is under way.
  void until(const std::function<bool()>& condition, const QString& what);
  QImage picture();

 private:
  class Desktop;

  void frame();

  StageTime* m_time;
  SystemClock m_systemClock;
  demo::DemoService m_service;
  demo::DemoTransport m_demo{m_service};
  StagedTransport m_transport;
  MemoryKeychain m_keychain;
  std::unique_ptr<Desktop> m_desktop;
  std::unique_ptr<ClientWindow> m_client;
  QQuickWindow* m_window = nullptr;
};

}  // namespace orv
