#include <QCommandLineParser>
#include <QDir>
#include <QEventLoop>
#include <QGuiApplication>
#include <QTextStream>
#include <QTimer>

#include "ui/catalogue/CataloguePages.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

namespace {

int render(QQmlEngine& engine, const QDir& folder, const QSize& size) {
  if (!folder.mkpath(u"."_s)) return 1;
  for (const bool dark : {false, true}) {
    for (const catalogue::Sheet& sheet : catalogue::sheets()) {
      const auto window = catalogue::openBare(engine, sheet, dark);
      if (!window) return 1;
      if (size.isValid()) window->resize(size);
      window->show();
      QEventLoop loop;
      QTimer::singleShot(200, &loop, &QEventLoop::quit);
      loop.exec();
      const QString file = folder.filePath(sheet.name() + (dark ? u"-dark.png"_s : u"-light.png"_s));
      if (!window->grabWindow().save(file)) {
        QTextStream(stderr) << file << " can’t be written.\n";
        return 1;
      }
    }
  }
  QTextStream(stdout) << "The pages are in " << folder.absolutePath() << '\n';
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  QGuiApplication application(argc, argv);
  QCommandLineParser options;
  options.setApplicationDescription(u"Every control of Orvella in every state."_s);
  options.addHelpOption();
  options.addOption({u"render"_s, u"Renders every page to PNG files in a folder, and ends."_s, u"folder"_s});
  options.addOption({u"size"_s, u"The pictures' size, as 1024x700."_s, u"size"_s});
  options.process(application);

  QQmlEngine engine;
  catalogue::prepare(engine);
  if (options.isSet(u"render"_s)) {
    const QStringList size = options.value(u"size"_s).split(u'x');
    return render(engine, QDir(options.value(u"render"_s)),
                  size.size() == 2 ? QSize(size[0].toInt(), size[1].toInt()) : QSize());
  }
  const auto window = catalogue::open(engine, catalogue::sheets().first());
  if (!window) return 1;
  window->show();
  return QGuiApplication::exec();
}
