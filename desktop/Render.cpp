#include "desktop/Render.h"

#include <QDir>
#include <QTextStream>

#include "desktop/ClientWindow.h"
#include "desktop/RenderScenes.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

class Renderer {
 public:
  Renderer(const QDir& folder, const QString& prefix) : m_folder(folder), m_prefix(prefix) {
    ClientWindow::prepare(m_engine);
  }

  bool all() {
    for (const QSize& size : {QSize(1024, 700), QSize(1280, 800)})
      for (const bool dark : {false, true})
        if (!set(size, dark)) return false;
    return true;
  }
  int count() const { return m_count; }

 private:
  bool set(const QSize& size, bool dark) {
    const QString suffix = u"-%1x%2-%3.png"_s.arg(size.width()).arg(size.height()).arg(dark ? u"dark"_s : u"light"_s);
    for (const Scene& scene : m_scenes)
      if (scene.name.startsWith(m_prefix) && !shoot(scene, size, dark, suffix)) return false;
    return true;
  }

  bool shoot(const Scene& scene, const QSize& size, bool dark, const QString& suffix) {
    Stage stage(m_engine, scene.signedIn, scene.mode, size, dark);
    if (!stage.isReady()) return false;
    scene.play(stage);
    const QImage image = stage.picture();
    if (image.isNull() || !image.save(m_folder.filePath(scene.name + suffix))) {
      QTextStream(stderr) << m_folder.filePath(scene.name + suffix) << " can’t be written.\n";
      return false;
    }
    ++m_count;
    return true;
  }

  QDir m_folder;
  QString m_prefix;
  QList<Scene> m_scenes = allScenes();
  QQmlEngine m_engine;
  int m_count = 0;
};

}  // namespace

int renderPages(const QString& folder, const QString& prefix) {
  const QDir dir(folder);
  if (!dir.mkpath(u"."_s)) {
    QTextStream(stderr) << "The folder " << folder << " can’t be made.\n";
    return 1;
  }
  Renderer renderer(dir, prefix);
  if (!renderer.all()) return 1;
  QTextStream(stdout) << renderer.count() << " pictures in " << dir.absolutePath() << '\n';
  return 0;
}

}  // namespace orv
