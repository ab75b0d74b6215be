#include <QCommandLineParser>
#include <QGuiApplication>
#include <QQuickStyle>
#include <QRandomGenerator>
#include <QTextStream>

#include "desktop/scenes/SceneRunner.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

namespace {

struct Wish {
  bool check = false;
  bool all = false;
  /// Every page, but only one of so many other states, which a seed picks.
  int thinned = 1;
  quint32 seed = 0;
  QString prefix;
  /// By their whole names.
  QStringList names;
  /// None for those that the rest asks for.
  QList<QSize> sizes;
  /// Every n-th scene from which on; one program takes them all otherwise.
  int share = 0;
  int shares = 1;
  QString folder;

  /// Each page once.
  bool isShort() const { return !check && !all && prefix.isEmpty() && names.isEmpty(); }
};

Wish wishOf(const QCoreApplication& application) {
  QCommandLineParser parser;
  parser.setApplicationDescription(
      u"Plays Orvella’s pages and states, and renders them to PNG files: each page once, or what is asked for."_s);
  parser.addHelpOption();
  parser.addOption({u"all"_s, u"Every state, in both sizes and both themes."_s});
  parser.addOption({u"scenes"_s, u"Those states whose names begin like this."_s, u"prefix"_s});
  parser.addOption({u"scene"_s, u"The state of that name; may be given several times."_s, u"name"_s});
  parser.addOption({u"size"_s, u"Of the window, as \"1680x1050\"; may be given several times."_s, u"size"_s});
  parser.addOption({u"check"_s, u"Keeps no pictures; both themes at one size."_s});
  parser.addOption({u"some"_s,
                    u"With --check: every page, and one of six other states. ORV_SCENES_SEED says which; another each "
                    u"time else."_s});
  parser.addOption({u"share"_s, u"With --check: one of n parts, as \"1/4\"."_s, u"part"_s, u"1/1"_s});
  parser.addPositionalArgument(u"folder"_s, u"Where the pictures go."_s, u"[folder]"_s);
  parser.process(application);

  const QStringList share = parser.value(u"share"_s).split(u'/');
  const QByteArray asked = qgetenv("ORV_SCENES_SEED");
  QList<QSize> sizes;
  for (const QString& size : parser.values(u"size"_s)) {
    const QStringList sides = size.split(u'x');
    sizes.append(QSize(sides.value(0).toInt(), sides.value(1).toInt()));
    if (sizes.last().isEmpty()) parser.showHelp(2);
  }
  const Wish wish{.check = parser.isSet(u"check"_s),
                  .all = parser.isSet(u"all"_s),
                  .thinned = parser.isSet(u"some"_s) ? 6 : 1,
                  .seed = asked.isEmpty() ? QRandomGenerator::global()->generate() : asked.toUInt(),
                  .prefix = parser.value(u"scenes"_s),
                  .names = parser.values(u"scene"_s),
                  .sizes = sizes,
                  .share = share.value(0).toInt() - 1,
                  .shares = share.value(1).toInt(),
                  .folder = parser.positionalArguments().value(0)};
  if (wish.share < 0 || wish.share >= wish.shares || wish.check == !wish.folder.isEmpty()) parser.showHelp(2);
  return wish;
}

QList<Scene> scenesOf(const Wish& wish) {
  QList<Scene> wanted;
  quint32 states = wish.seed;
  for (int number = 0; const Scene& scene : allScenes()) {
    if (!scene.name.startsWith(wish.prefix) || (wish.isShort() && !scene.isPage)) continue;
    if (!wish.names.isEmpty() && !wish.names.contains(scene.name)) continue;
    if (!scene.isPage && states++ % quint32(wish.thinned) != 0) continue;
    if (number++ % wish.shares == wish.share) wanted.append(scene);
  }
  return wanted;
}

int play(const Wish& wish) {
  const QDir folder(wish.folder);
  if (!wish.check && !folder.mkpath(u"."_s)) {
    QTextStream(stderr) << "The folder " << wish.folder << " can’t be made.\n";
    return 1;
  }
  const QList<Scene> scenes = scenesOf(wish);
  QList<QSize> sizes = wish.sizes;
  if (sizes.isEmpty()) {
    sizes.append(QSize(1280, 800));
    if (!wish.check && !wish.isShort()) sizes.append(QSize(1024, 700));
  }

  SceneRunner runner(wish.check ? std::nullopt : std::optional(folder));
  for (const QSize& size : sizes)
    for (const Scene& scene : scenes) runner.play(scene, size, !wish.isShort());

  for (const QString& fault : runner.faults()) QTextStream(stderr) << fault << '\n';
  QTextStream out(stdout);
  out << runner.pictures() << " pictures of " << scenes.size() << " scenes";
  if (!wish.check) out << " in " << folder.absolutePath();
  if (wish.thinned > 1) out << ", picked by ORV_SCENES_SEED=" << wish.seed;
  out << ", " << runner.faults().size() << " faults\n";
  return runner.faults().isEmpty() && !scenes.isEmpty() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  QQuickStyle::setStyle(u"Basic"_s);
  QGuiApplication application(argc, argv);
  return play(wishOf(application));
}
