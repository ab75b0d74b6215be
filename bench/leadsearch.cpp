#include <QQuickItem>
#include <QTemporaryDir>
#include <cmath>

#include "app/base/CsvFile.h"
#include "app/base/CsvText.h"
#include "app/leads/LeadsStore.h"
#include "bench/Frame.h"
#include "bench/Report.h"
#include "desktop/scenes/Stage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::bench {
namespace {

/// As long as the service takes a file at the most.
QString writeFile(const QTemporaryDir& folder, qint64 bytes) {
  QFile file(folder.filePath(u"people.csv"_s));
  if (!file.open(QIODevice::WriteOnly)) return {};
  QByteArray text = "Work Email,First Name,Company Name,Job Title,City,Notes\n";
  for (int i = 0; text.size() < bytes; ++i)
    text += "person" + QByteArray::number(i) +
            "@company.example,Ana,\"Graf, \"\"Sons\"\"\",Owner,K\xC3\xB6ln,met in hall 4\n";
  file.write(text.first(bytes));
  return file.fileName();
}

void files(Scale scale) {
  const qint64 bytes = scale.of(50) * (1LL << 20);
  std::printf("a file of %lld MB that is imported\n", static_cast<long long>(bytes >> 20));
  const QTemporaryDir folder;
  const QString path = writeFile(folder, bytes);
  qsizetype found = 0;
  const auto scan = repeated(5, [&] {
                      QFile file(path);
                      if (file.open(QIODevice::ReadOnly)) found += file.readAll().count('\n');
                    }).median();
  const auto preview = repeated(5, [&] { found += previewCsv(path).headers.size(); }).median();
  const auto packed = repeated(5, [&] {
                        FileWatch watch;
                        found += packText(readCsv(path, watch).bytes, R"({"csv":")", R"("})").size();
                      }).median();
  line("its first rows, median", preview, "ms", "under 20");
  line("read whole and packed, median", packed, "ms");
  line("baseline: read, and its line ends counted", scan, "ms");
  line(found > 0 ? "that is times the baseline" : "nothing was read", packed / scan, "x", "at most 5");
}

std::vector<FoundLead> people(int from, int count) {
  std::vector<FoundLead> leads;
  for (int number = from; number < from + count; ++number) {
    Lead lead;
    lead.id = u"p%1"_s.arg(number);
    lead.email = u"person%1@company%2.example"_s.arg(number).arg(number % 977);
    lead.fullName = u"First%1 Last%2"_s.arg(number % 313).arg(number % 1931);
    lead.title = u"Owner"_s;
    lead.company = u"Company %1"_s.arg(number % 977);
    lead.verification = LeadVerification(u"valid"_s);
    lead.source = u"linkedin"_s;
    leads.emplace_back(lead);
  }
  return leads;
}

QQuickItem* tableOf(QQuickItem* item) {
  const QMetaObject& type = *item->metaObject();
  if (item->isVisible() && type.indexOfMethod("show(QString)") >= 0 && type.indexOfMethod("focusRows()") >= 0)
    return item;
  for (QQuickItem* child : item->childItems())
    if (QQuickItem* found = tableOf(child)) return found;
  return nullptr;
}

/// A jump anywhere among the loaded rows until its frame, which makes a screen of rows anew.
double jumps(Stage& stage, QQuickItem* table, int count, int rounds) {
  Times jump;
  for (int round = 0; round < rounds; ++round) {
    const QString key = u"p%1"_s.arg(qint64(round) * 7919 % count);
    jump.ms.push_back(milliseconds([&] {
      QMetaObject::invokeMethod(table, "show", Q_ARG(QString, key));
      frame(stage.window());
    }));
  }
  return jump.at(0.95);
}

/// A turn of the wheel until its frame, on the way down.
double scrolls(Stage& stage, QQuickItem* body, int rounds) {
  constexpr double turn = 120;
  Times scrolled;
  const double most = std::max(turn, body->property("contentHeight").toDouble() - body->height());
  for (int round = 0; round < rounds; ++round)
    scrolled.ms.push_back(milliseconds([&] {
      body->setProperty("contentY", std::fmod(round * turn, most));
      frame(stage.window());
    }));
  return scrolled.at(0.95);
}

void rows(Stage& stage, LeadFinder& finder, Scale scale) {
  QQuickItem* table = tableOf(stage.window().contentItem());
  QQuickItem* body = table ? rowsIn(table) : nullptr;
  if (!body) return line("the page has no table", 0, "ms");
  auto& model = *finder.results()->list()->rows();
  const int many = scale.of(100'000), rounds = scale.of(200);
  model.replace(people(0, 100));
  frame(stage.window());
  const double few = scrolls(stage, body, rounds), jumped = jumps(stage, table, 100, rounds);
  model.replace(people(0, many));
  frame(stage.window());
  line("scrolling in 100,000 loaded rows, a turn until its frame, 95th", scrolls(stage, body, rounds), "ms",
       "under 12");
  line("baseline: the same in 100 rows", few, "ms");
  line("a jump to any of 100,000 loaded rows until its frame, 95th", jumps(stage, table, many, rounds), "ms");
  line("baseline: the same in 100 rows", jumped, "ms");
}

/// What the person waits for, with the sample service out of the way: the store, the bindings and the frame.
void rail(Stage& stage, LeadFinder& finder, int rounds) {
  LeadFilters& filters = *finder.filters();
  filters.chooseDatabase(u"linkedin"_s);
  for (const auto& group : filters.groups()) filters.setOpen(group.key, true);
  stage.settle();
  for (const QString& key : {u"title"_s, u"company"_s, u"tech"_s, u"industry"_s, u"country"_s})
    if (FacetList* facet = filters.facet(key)) facet->setExpanded(true);
  stage.settle();
  Times open, typed, change;
  for (int round = 0; round < rounds; ++round) {
    filters.setFolded(true);
    frame(stage.window());
    open.ms.push_back(milliseconds([&] {
      filters.setFolded(false);
      frame(stage.window());
    }));
    FacetList* facet = filters.facet(u"title"_s);
    for (const QString& text : {u"h"_s, u"he"_s, u"head"_s, QString()})
      typed.ms.push_back(milliseconds([&] { facet->setTyped(text); }));
    stage.settle();
    // Until the rows of the older search are drawn as such.
    stage.transport().mode = StagedTransport::Mode::holding;
    change.ms.push_back(milliseconds([&] {
      filters.toggle(u"title"_s, u"Owner"_s);
      frame(stage.window());
    }));
    stage.transport().mode = StagedTransport::Mode::passing;
    finder.refresh();
    stage.settle();
  }
  line("the rail with all groups open unfolds until its frame, median", open.median(), "ms", "under 50");
  line("a keystroke in a list of values, 95th percentile", typed.at(0.95), "ms", "under 8");
  line("a filter ticked until the older rows are dimmed, median", change.median(), "ms", "under 32");
}

void firstPage(Stage& stage, LeadFinder& finder, int rounds) {
  Times drawn;
  for (int round = 0; round < rounds; ++round) {
    QElapsedTimer timer;
    const auto arrived = QObject::connect(finder.results()->list(), &ResourceBase::valueChanged, &stage.window(),
                                          [&] { timer.start(); });
    finder.filters()->toggle(u"country"_s, round % 2 ? u"Germany"_s : u"Austria"_s);
    stage.until([&] { return timer.isValid() && !finder.results()->waiting(); }, u"the first page"_s);
    QObject::disconnect(arrived);
    frame(stage.window());
    drawn.ms.push_back(double(timer.nsecsElapsed()) / 1e6);
    stage.settle();
  }
  line("the first page from its answer until its frame, median", drawn.median(), "ms", "under 50");
}

}  // namespace

bool leadSearch(Scale scale) {
  files(scale);
  std::printf("leads on their page\n");
  QQmlEngine engine;
  ClientWindow::prepare(engine);
  Stage stage(engine, {});
  if (!stage.isReady()) return false;
  stage.app().router()->open(Page::leads);
  stage.settle();
  auto* store = stage.app().session()->store<LeadsStore>();
  if (!store) return false;
  const int rounds = scale.quick ? 1 : 20;
  firstPage(stage, *store->finder(), rounds);
  rail(stage, *store->finder(), rounds);
  rows(stage, *store->finder(), scale);
  return true;
}

}  // namespace orv::bench
