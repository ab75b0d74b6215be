#include <QQuickItem>

#include "app/campaigns/CampaignStore.h"
#include "bench/Frame.h"
#include "bench/Report.h"
#include "desktop/scenes/Stage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::bench {
namespace {

QString words(int count) {
  static const QStringList some{u"{Hi|Hello}"_s, u"{{firstName}},"_s, u"could"_s, u"we"_s,   u"take"_s,
                                u"the"_s,        u"booking"_s,        u"off"_s,   u"your"_s, u"desk?\n\n"_s};
  QString text;
  for (int i = 0; i < count; ++i) text += some[i % some.size()] + u' ';
  return text;
}

/// Lets answers in until the sequence is that long.
bool waitForSteps(Stage& stage, const SequenceEditor& editor, int steps) {
  for (int round = 0; round < 100 && editor.stepCount() != steps; ++round) frame(stage.window());
  return editor.stepCount() == steps;
}

CampaignStore& open(Stage& stage, const QString& id) {
  stage.app().router()->openCampaign(id);
  return *stage.app().session()->item<CampaignStore>(Page::campaigns, id);
}

/// Writes a sequence of that size and has the service keep it.
bool write(Stage& stage, const QString& id, int steps, int variants, int length) {
  SequenceEditor& editor = *open(stage, id).sequence();
  stage.settle();
  const QString body = words(length);
  while (editor.stepCount() < steps) editor.insertStep(editor.stepCount());
  for (int place = 0; place < steps; ++place) {
    editor.selectPlace(place);
    while (editor.variants().size() < variants) editor.addVariant();
    editor.setBody(body);
  }
  editor.autosave()->save();
  stage.settle();
  return !editor.isUnsaved();
}

}  // namespace

bool editor(Scale scale) {
  const int steps = 20, variants = 4, length = scale.of(5000);
  std::printf("A sequence of %d emails in %d variants, texts of %d words\n", steps, variants, length);
  QQmlEngine engine;
  ClientWindow::prepare(engine);
  Stage stage(engine, {});
  if (!stage.isReady()) return false;
  const QString id = stage.openCampaigns().list()->value()->items.first().id;
  if (!write(stage, id, steps, variants, length)) {
    std::printf("  The sequence was not saved.\n");
    return false;
  }

  Times opening, switching;
  for (int round = 0; round < (scale.quick ? 1 : 10); ++round) {
    stage.app().router()->open(Page::campaigns);
    stage.app().session()->trim();
    stage.settle();
    QElapsedTimer timer;
    timer.start();
    CampaignStore& store = open(stage, id);
    if (!waitForSteps(stage, *store.sequence(), steps)) return false;
    frame(stage.window());
    opening.ms.push_back(double(timer.nsecsElapsed()) / 1e6);
  }
  for (int round = 0; round < (scale.quick ? 1 : 10); ++round) {
    for (const Page page : {Page::dashboard, Page::campaigns}) {
      switching.ms.push_back(milliseconds([&] {
        stage.app().router()->open(page);
        frame(stage.window());
      }));
      stage.settle();
    }
  }

  open(stage, id);
  stage.settle();
  SequenceEditor& shown = *open(stage, id).sequence();
  Q_EMIT shown.writingAsked();
  stage.settle();
  // From the subject on to the text.
  stage.press(Qt::Key_Return);
  const QString before = shown.body();
  Times keystroke;
  for (int i = 0; i < (scale.quick ? 2 : 200); ++i) {
    keystroke.ms.push_back(milliseconds([&] {
      stage.type(u"a"_s);
      frame(stage.window());
    }));
  }
  if (shown.body().size() != before.size() + qsizetype(keystroke.ms.size())) {
    std::printf("  What was typed did not reach the text.\n");
    return false;
  }
  line("opening it until drawn, its answer included, median", opening.median(), "ms", "under 100");
  line("the same, slowest", opening.at(1), "ms");
  line("a known page until drawn, median", switching.median(), "ms", "under 100");
  line("the same, slowest", switching.at(1), "ms");
  line("keystroke in a body until its frame is drawn, median", keystroke.median(), "ms", "under 16");
  line("the same, 95th percentile", keystroke.at(0.95), "ms");
  return true;
}

}  // namespace orv::bench
