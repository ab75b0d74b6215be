#include <QCommandLineParser>
#include <QGuiApplication>

#include "bench/Report.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

int main(int argc, char** argv) {
  // Figures of a graphics card would say little about the next machine's.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  QGuiApplication application(argc, argv);
  QCommandLineParser options;
  options.setApplicationDescription(
      u"Measures Orvella, each figure beside its baseline or goal. Parts: decode, lists, start, window, chart, "
      "editor, leads, leadsearch, accounts, analytics, settings, runs, inbox, tour, all of them unless one is named; "
      "and "
      "build, which takes "
      "minutes."_s);
  options.addHelpOption();
  options.addOption({u"quick"_s, u"Only shows that everything runs."_s});
  options.addOption({u"only"_s, u"Measures nothing but the named part."_s, u"part"_s});
  options.process(application);

  const bench::Scale scale{options.isSet(u"quick"_s)};
#ifndef NDEBUG
  std::printf("This build is not optimised; its figures mean nothing. Use the release preset.\n");
#endif
  const std::pair<QString, bool (*)(bench::Scale)> parts[] = {
      {u"decode"_s, bench::decode},     {u"lists"_s, bench::lists},         {u"build"_s, bench::build},
      {u"start"_s, bench::start},       {u"window"_s, bench::window},       {u"chart"_s, bench::chart},
      {u"editor"_s, bench::editor},     {u"leads"_s, bench::leads},         {u"leadsearch"_s, bench::leadSearch},
      {u"accounts"_s, bench::accounts}, {u"analytics"_s, bench::analytics}, {u"settings"_s, bench::settings},
      {u"runs"_s, bench::runs},         {u"inbox"_s, bench::inbox},         {u"tour"_s, bench::tour}};
  const QString only = options.value(u"only"_s);
  bool done = false;
  for (const auto& [name, measure] : parts) {
    if (only.isEmpty() ? name == "build"_L1 : name != only) continue;
    done = measure(scale);
    if (!done) break;
  }
  return done ? 0 : 1;
}
