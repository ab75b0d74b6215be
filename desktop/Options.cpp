#include "desktop/Options.h"

#include <QCommandLineParser>
#include <QTextStream>
#include <cstdlib>

using namespace Qt::Literals::StringLiterals;

namespace orv {

Options Options::parse(int argc, char** argv) {
  QStringList words;
  for (int i = 0; i < argc; ++i) words.append(QString::fromLocal8Bit(argv[i]));

  QCommandLineParser parser;
  parser.setApplicationDescription(u"Orvella: write cold email campaigns, and answer who replies."_s);
  const QCommandLineOption help({u"h"_s, u"help"_s}, u"Shows this text."_s);
  const QCommandLineOption version({u"v"_s, u"version"_s}, u"Shows the version."_s);
  const QCommandLineOption demo(u"demo"_s, u"Opens a sample workspace, without a network."_s);
  const QCommandLineOption campaigns(u"campaigns"_s, u"Campaigns in the sample, at least."_s, u"n"_s, u"0"_s);
  const QCommandLineOption fresh(u"fresh"_s, u"Starts signed out and leaves the keyring alone."_s);
  QCommandLineOption untilContent(u"until-content"_s);
  untilContent.setFlags(QCommandLineOption::HiddenFromHelp);
  parser.addOptions({help, version, demo, campaigns, fresh, untilContent});
  parser.addPositionalArgument(u"link"_s, u"A sign-in link."_s, u"[link]"_s);

  const bool parsed = parser.parse(words);
  if (!parsed) {
    QTextStream(stderr) << "orvella: " << parser.errorText() << '\n';
    std::exit(2);
  }
  if (parser.isSet(help)) {
    // The toolkit would name the program only with an application object.
    QTextStream(stdout) << parser.helpText().replace(u"<executable_name>"_s, u"orvella"_s);
    std::exit(0);
  }
  if (parser.isSet(version)) {
    QTextStream(stdout) << "Orvella " << ORVELLA_VERSION << '\n';
    std::exit(0);
  }
  return {parser.isSet(demo), parser.value(campaigns).toInt(), parser.isSet(fresh), parser.isSet(untilContent),
          parser.positionalArguments()};
}

}  // namespace orv
