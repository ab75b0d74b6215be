#include <QInputMethodEvent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

#include "app/campaigns/CampaignStore.h"
#include "tests/support/AppFixture.h"
#include "tests/ui/support/items.h"
#include "tests/ui/support/warnings.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto get = u"GET /campaigns/c1"_s;
const auto put = u"PUT /campaigns/c1/steps"_s;
const auto preview = u"POST /campaigns/c1/preview"_s;
const auto spintax = u"POST /campaigns/spintax"_s;

const QByteArray campaign = R"({"id":"c1","name":"Acme","status":"draft","version":7,"senders":[],
  "schedule":{"schedules":[{"name":"Any time","days":[1,2,3,4,5,6,7],"start":"00:00","end":"24:00","timeZone":"Etc/UTC"}]},
  "steps":[
  {"id":"s1","position":1,"delayMinutes":0,"sameThread":false,
   "variants":[{"id":"v1","label":"A","subject":"One","body":"Hi","weight":1,"enabled":true}]},
  {"id":"s2","position":2,"delayMinutes":2880,"sameThread":true,
   "variants":[{"id":"v2","label":"A","subject":"","body":"Again","weight":1,"enabled":true}]}]})";

}  // namespace

/// The tab as wide as the smallest window leaves it, where no preview stands beside the text.
class SequenceTabTest : public QObject {
  Q_OBJECT

  std::unique_ptr<AppFixture> f;
  std::unique_ptr<CampaignStore> store;
  std::unique_ptr<QQuickView> view;
  SequenceEditor* editor = nullptr;

  QList<QQuickItem*> items(const std::function<bool(QQuickItem*)>& wanted) {
    return ui::visibleItems(view->contentItem(), wanted);
  }
  QQuickItem* withText(const QString& text) {
    return items([&text](QQuickItem* item) { return item->property("text").toString() == text; }).value(0);
  }
  /// The control in which the field of this name is written.
  QQuickItem* field(const QString& name) {
    QQuickItem* around =
        items([&name](QQuickItem* item) { return item->property("name").toString() == name; }).value(0);
    return items([around](QQuickItem* item) {
             return item->inherits("QQuickTextEdit") && around && around->isAncestorOf(item);
           })
        .value(0);
  }
  void click(const QString& text) {
    QQuickItem* item = withText(text);
    QVERIFY2(item, qPrintable(text));
    QTest::mouseClick(view.get(), Qt::LeftButton, {},
                      item->mapToScene({item->width() / 2, item->height() / 2}).toPoint());
  }
  void undo() { QTest::keyClick(view.get(), Qt::Key_Z, Qt::ControlModifier); }
  QString bodyOf(int place) const { return editor->draft().steps()[place].variants.first().body; }

 private Q_SLOTS:
  void init() {
    orv::ui::failOnWarnings();
    f = std::make_unique<AppFixture>();
    store = std::make_unique<CampaignStore>(u"c1"_s, *f->context);
    editor = store->sequence();
    f->api.expect(get);
    store->ensureLoaded();
    f->api.answer(get, campaign);
    view = std::make_unique<QQuickView>();
    view->engine()->addImportPath(u"qrc:/qt/qml"_s);
    view->setResizeMode(QQuickView::SizeRootObjectToView);
    view->resize(900, 600);
    view->setInitialProperties({{u"editor"_s, QVariant::fromValue(editor)}});
    view->setSource(QUrl(u"qrc:/qt/qml/Orvella/Campaigns/SequenceTab.qml"_s));
    QVERIFY(view->rootObject());
    view->show();
    QVERIFY(QTest::qWaitForWindowActive(view.get()));
    f->api.expect(preview);
    f->clock.advance(SequencePreview::firstWait);
  }
  void cleanup() {
    // The tab saves when it goes.
    store->close();
    view.reset();
    store.reset();
    f.reset();
  }

  void spintaxIsTakenBackWithCtrlZ() {
    f->api.expect(spintax);
    click(u"Auto spintax"_s);
    f->api.answer(spintax, R"({"text":"{Hi|Hello}"})");
    QCOMPARE(editor->body(), u"{Hi|Hello}"_s);
    undo();
    QCOMPARE(editor->body(), u"Hi"_s);

    // The answer comes while another email is shown.
    f->api.expect(spintax);
    click(u"Auto spintax"_s);
    editor->selectPlace(1);
    f->api.answer(spintax, R"({"text":"{Hi|Hello}"})");
    QCOMPARE(bodyOf(0), u"{Hi|Hello}"_s);
    undo();
    QCOMPARE(editor->body(), u"Again"_s);
    editor->selectPlace(0);
    undo();
    QCOMPARE(editor->body(), u"Hi"_s);
  }

  void theFormatBarNeverWritesInASubjectThatIsNotThere() {
    field(u"Subject"_s)->forceActiveFocus();
    editor->selectPlace(1);
    click(u"Link"_s);
    QCOMPARE(field(u"Subject"_s)->property("length").toInt(), 0);
    QVERIFY(editor->body().contains(u"](https://)"_s));
    // A new thread has one; where it was not written in, the text is meant.
    editor->setSameThread(false);
    editor->selectPlace(0);
    click(u"Spin text"_s);
    QCOMPARE(editor->subject(), u"One"_s);
    field(u"Subject"_s)->forceActiveFocus();
    click(u"Spin text"_s);
    QVERIFY(editor->subject().contains(u"{|}"_s));
  }

  void whatIsHalfComposedStaysInItsEmail_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("text") << u"Email text"_s;
    QTest::newRow("subject, which the next email has not") << u"Subject"_s;
  }
  void whatIsHalfComposedStaysInItsEmail() {
    QFETCH(QString, name);
    const auto before = editor->draft().inputs();
    field(name)->forceActiveFocus();
    QInputMethodEvent composing(u"に"_s, {});
    QCoreApplication::sendEvent(field(name), &composing);
    QCOMPARE(editor->draft().inputs(), before);
    editor->selectPlace(1);
    const DraftVariant& first = editor->draft().steps()[0].variants.first();
    QVERIFY((name == u"Subject"_s ? first.subject : first.body).contains(u'に'));
    QCOMPARE(editor->draft().inputs()[1], before[1]);
    QCOMPARE(field(name)->property("preeditText").toString(), QString());
  }

  void theTimelineSaysWhatBeginsIt() {
    // Narrower, the emails are a drawer; so wide, the preview asks for its leads.
    f->api.expect(u"GET /campaigns/c1/leads"_s);
    view->resize(1100, 700);
    QQuickItem* start = nullptr;
    QTRY_VERIFY(start = withText(u"Starts when a lead is added to the campaign"_s));
    QVERIFY(QRectF(0, 77, 264, 56).contains(start->mapToScene({0, 0})));
  }

  void theWaitIsNamedAndClamped() {
    editor->selectPlace(1);
    click(u"One day less"_s);
    QCOMPARE(editor->waitDays(), 1);
    click(u"One day more"_s);
    QCOMPARE(editor->waitDays(), 2);
    QQuickItem* input = items([](QQuickItem* item) {
                          return item->inherits("QQuickTextInput") && item->property("text").toString() == u"2"_s;
                        }).value(0);
    QVERIFY(input);
    input->forceActiveFocus();
    QTest::keyClick(view.get(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(view.get(), Qt::Key_6);
    QTest::keyClick(view.get(), Qt::Key_1);
    QCOMPARE(editor->draft().steps()[1].delayMinutes, 60 * minutesPerDay);
  }

  /// The email's block in the strip of days.
  QQuickItem* block(int place) {
    return items([place](QQuickItem* item) {
             return item->property("tabStop").isValid() && item->property("place").toInt() == place;
           })
        .value(0);
  }
  QPoint middleOf(QQuickItem* item) { return item->mapToScene({item->width() / 2, item->height() / 2}).toPoint(); }

  void theStripMovesAWaitByKeyAndByPointer() {
    QVERIFY(block(0) && block(1));
    const double column = (block(1)->x() - block(0)->x()) / 2;
    // From within the text, for the email that is written.
    editor->selectPlace(1);
    field(u"Email text"_s)->forceActiveFocus();
    QTest::keyClick(view.get(), Qt::Key_Right, Qt::AltModifier | Qt::ShiftModifier);
    QCOMPARE(editor->waitDays(), 3);
    QCOMPARE(block(1)->x() - block(0)->x(), 3 * column);

    const QPoint from = middleOf(block(1)), to = from + QPoint(int(2 * column) + 5, 0);
    QTest::mousePress(view.get(), Qt::LeftButton, {}, from);
    for (int step = 1; step <= 8; ++step) QTest::mouseMove(view.get(), from + (to - from) * step / 8);
    QCOMPARE(editor->waitDays(), 3);
    QCOMPARE(block(1)->x() - block(0)->x(), 5 * column);
    QTest::mouseRelease(view.get(), Qt::LeftButton, {}, to);
    QCOMPARE(editor->waitDays(), 5);
    f->toasts.act(f->toasts.toasts().last().id);
    QCOMPARE(editor->waitDays(), 2);

    // A press alone shows the email, and the arrows go on from there.
    QTest::mouseClick(view.get(), Qt::LeftButton, {}, middleOf(block(0)));
    QCOMPARE(editor->place(), 0);
    QTest::keyClick(view.get(), Qt::Key_Right);
    QCOMPARE(editor->place(), 1);
    QCOMPARE(view->activeFocusItem(), block(1));
    QTest::keyClick(view.get(), Qt::Key_Return);
    QCOMPARE(view->activeFocusItem(), field(u"Email text"_s));
  }

  void aFailedSaveCanBeReadUntilOneSucceeds() {
    const QString sentence = u"Couldn’t save the sequence. You’re offline. Connect to the internet and try again."_s;
    editor->setBody(u"new"_s);
    f->api.expect(put);
    editor->autosave()->save();
    QVERIFY(!withText(sentence));
    f->api.fail(put, TransportFailure::offline);
    QVERIFY(withText(sentence));
    editor->setBody(u"newer"_s);
    QVERIFY(withText(sentence));
    f->api.expect(put);
    editor->autosave()->save();
    f->api.answer(put, campaign);
    QVERIFY(!withText(sentence));
  }

  void theLeadsOwnVariablesAreOffered() {
    f->api.answer(preview, R"({"lead":{"email":"a@b.c"},"steps":[],"variables":[{"name":"city","value":"Ghent"}]})");
    QCOMPARE(editor->variables().last().name, u"city"_s);
    field(u"Email text"_s)->forceActiveFocus();
    for (const char letter : {'{', '{', 'c', 'i'}) QTest::keyClick(view.get(), letter);
    QVERIFY(withText(u"From your leads"_s));
    QTest::keyClick(view.get(), Qt::Key_Return);
    QVERIFY(editor->body().contains(u"{{city}}"_s));
  }
};

QTEST_MAIN(SequenceTabTest)
#include "sequencetab_test.moc"
