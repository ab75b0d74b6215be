#include <QDir>
#include <QFile>

#include "app/leads/LeadListStore.h"
#include "app/leads/LeadsStore.h"
#include "desktop/scenes/Scene.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

using Mode = StagedTransport::Mode;

LeadsStore& openLists(Stage& stage) {
  stage.app().router()->open(Page::leads);
  LeadsStore& leads = *stage.app().session()->store<LeadsStore>();
  leads.setTab(u"lists"_s);
  stage.settle();
  return leads;
}

LeadList firstList(LeadsStore& leads) { return leads.lists()->all().value(0); }

/// The page of the first list.
LeadListStore& openList(Stage& stage) {
  const QString id = firstList(openLists(stage)).id;
  stage.app().router()->openItem(Page::leads, id);
  stage.settle();
  return *stage.app().session()->item<LeadListStore>(Page::leads, id);
}

LeadListStore& openTickedList(Stage& stage) {
  LeadListStore& list = openList(stage);
  const QStringList ids = list.results()->list()->shownIds();
  for (const qsizetype row : {1, 2, 4}) list.results()->selection()->toggle(ids.value(row));
  return list;
}

QString file(const QString& name, const QByteArray& text) {
  QFile file(QDir::temp().filePath(name));
  if (file.open(QIODevice::WriteOnly)) file.write(text);
  return file.fileName();
}

CsvImportForm& chooseFile(Stage& stage, const QByteArray& text, const QString& name = u"ghent-fleets.csv"_s) {
  CsvImportForm& form = *openLists(stage).leadActions()->importing();
  form.show();
  stage.settle();
  form.setFile(file(name, text));
  stage.until([&form] { return !form.looking(); }, u"the file"_s);
  stage.settle();
  return form;
}

const QByteArray people =
    "Work Email,First Name,Company Name,Mobile Phone,Vans,CRM owner,Job Title,City,Country,Website,Result\n"
    "jonas@halden.example.org,Jonas,Halden Transport,,38,Kees,Fleet manager,Ghent,Belgium,halden.example.org,valid\n"
    "mia@noord.example.org,Mia,Noord Logistiek,,12,Kees,Owner,Antwerp,Belgium,noord.example.org,valid\n"
    "tom@kaai.example.org,Tom,Kaai 9,,21,Lena,Dispatcher,Bruges,Belgium,kaai.example.org,catch_all\n";

}  // namespace

QList<Scene> leadListsScenes() {
  return {
      page(u"lead-lists"_s, [](Stage& s) { openLists(s); }),
      {u"lead-lists-empty"_s, [](Stage& s) { openLists(s); }, Mode::empty},
      {u"lead-lists-failed"_s,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         openLists(s);
       }},
      {u"lead-lists-loading"_s,
       [](Stage& s) {
         s.transport().mode = Mode::holding;
         openLists(s);
       }},
      {u"lead-lists-new"_s, [](Stage& s) { openLists(s).lists()->act(u"new"_s); }},
      {u"lead-lists-rename"_s,
       [](Stage& s) {
         auto& leads = openLists(s);
         leads.act(u"rename"_s, firstList(leads).id);
       }},
      {u"lead-lists-delete"_s,
       [](Stage& s) {
         auto& leads = openLists(s);
         leads.act(u"delete"_s, firstList(leads).id);
       }},
      {u"lead-lists-archive"_s,
       [](Stage& s) {
         auto& leads = openLists(s);
         leads.act(u"delete"_s, firstList(leads).id);
         s.settle();
         s.press(u"Delete list"_s);
         s.settle();
         leads.lists()->setShowArchived(true);
       }},
      {u"lead-lists-export"_s,
       [](Stage& s) {
         auto& leads = openLists(s);
         leads.act(u"export"_s, firstList(leads).id);
         leads.leadActions()->lists()->exporting()->setHowMany(u"100001"_s);
       }},
      page(u"lead-list"_s, [](Stage& s) { openList(s); }),
      {u"lead-list-ticked"_s, [](Stage& s) { openTickedList(s); }},
      {u"lead-list-removed"_s, [](Stage& s) { openTickedList(s).removeTicked(); }},
      {u"lead-list-gone"_s,
       [](Stage& s) {
         openLists(s);
         s.app().router()->openItem(Page::leads, u"li_of_nobody"_s);
       }},
      {u"import-empty"_s, [](Stage& s) { openLists(s).leadActions()->importing()->show(); }},
      {u"import-chosen"_s, [](Stage& s) { chooseFile(s, people); }},
      {u"import-without-email"_s, [](Stage& s) { chooseFile(s, people).setTarget(0, u"skip"_s); }},
      {u"import-refused"_s, [](Stage& s) { chooseFile(s, people, u"ghent-fleets.txt"_s); }},
      {u"import-failed"_s,
       [](Stage& s) {
         auto& form = chooseFile(s, people);
         s.transport().mode = Mode::failing;
         form.submit();
       }},
      {u"import-running"_s,
       [](Stage& s) {
         QByteArray many = people;
         for (int i = 0; i < 40'000; ++i)
           many += "p" + QByteArray::number(i) + "@fleet.example.org,Ann,,,,,,,,,valid\n";
         chooseFile(s, many).submit();
       }},
      {u"add-to-list"_s, [](Stage& s) { openTickedList(s).results()->addToList(); }},
      {u"add-to-list-new"_s,
       [](Stage& s) {
         auto& list = openTickedList(s);
         list.results()->addToList();
         s.settle();
         auto& form = *list.leadActions()->listAdding();
         form.list()->setCurrent(u"__new__"_s);
         form.list()->setNewName(u"Second round"_s);
       }},
      {u"add-to-list-done"_s,
       [](Stage& s) {
         auto& list = openTickedList(s);
         list.results()->addToList();
         s.settle();
         auto& form = *list.leadActions()->listAdding();
         form.list()->setCurrent(u"__new__"_s);
         form.list()->setNewName(u"Second round"_s);
         form.submit();
       }},
      {u"add-to-campaign"_s, [](Stage& s) { openTickedList(s).results()->addToCampaign(); }},
      {u"add-to-campaign-new"_s,
       [](Stage& s) {
         auto& list = openTickedList(s);
         list.results()->addToCampaign();
         s.settle();
         list.leadActions()->campaignAdding()->setCurrent(u"__new__"_s);
       }},
      {u"add-to-campaign-done"_s,
       [](Stage& s) {
         auto& list = openTickedList(s);
         list.results()->addToCampaign();
         s.settle();
         auto& form = *list.leadActions()->campaignAdding();
         form.setCurrent(u"__new__"_s);
         form.setNewName(u"Owners, US"_s);
         form.submit();
       }},
      {u"lead-list-unlock"_s, [](Stage& s) { openTickedList(s).results()->unlock(); }},
  };
}

}  // namespace orv
