#include "desktop/scenes/SceneRunner.h"

#include "desktop/scenes/Contrast.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

SceneRunner* current = nullptr;
QtMessageHandler previous = nullptr;

}  // namespace

SceneRunner::SceneRunner(std::optional<QDir> folder) : m_folder(std::move(folder)) {
  current = this;
  previous = qInstallMessageHandler(take);
  ClientWindow::prepare(m_engine);
}

SceneRunner::~SceneRunner() {
  qInstallMessageHandler(previous);
  current = nullptr;
}

void SceneRunner::take(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  // What the application itself notes in its log of a staged failure is as it should be.
  const bool own = QByteArrayView(context.category).startsWith("orvella.");
  if ((type == QtWarningMsg || type == QtCriticalMsg) && !own) return current->fault(message);
  previous(type, context, message);
}

void SceneRunner::fault(const QString& what) { m_faults.append(m_playing + u": "_s + what); }

void SceneRunner::play(const Scene& scene, const QSize& size, bool dark) {
  m_playing = scene.name;
  try {
    Stage stage(m_engine, {.signedIn = scene.signedIn, .mode = scene.mode, .size = size}, &m_time);
    if (!stage.isReady()) return fault(u"The window does not load."_s);
    scene.play(stage);
    stage.settle();
    picture(stage, scene, false);
    if (!dark) return;
    stage.app().appearance()->setSystemDark(true);
    stage.settle();
    picture(stage, scene, true);
  } catch (const StageTrouble& trouble) {
    fault(QString::fromUtf8(trouble.what()));
  }
}

void SceneRunner::picture(Stage& stage, const Scene& scene, bool dark) {
  const QImage image = stage.window().grabWindow();
  if (image.isNull()) return fault(u"The window draws nothing."_s);
  // The sidebar's ground, or the sign-in page's.
  if ((image.pixelColor(2, image.height() / 2).lightness() < 128) != dark)
    return fault(dark ? u"The dark theme is light."_s : u"The light theme is dark."_s);
  ++m_pictures;
  for (const QString& faint : Contrast(stage.window(), image).faults())
    fault((dark ? u"dark: "_s : u"light: "_s) + faint);
  if (!m_folder) return;
  const QString path = m_folder->filePath(u"%1-%2x%3-%4.png"_s.arg(
      scene.name, QString::number(image.width()), QString::number(image.height()), dark ? u"dark"_s : u"light"_s));
  if (!image.save(path)) fault(path + u" can’t be written."_s);
}

}  // namespace orv
