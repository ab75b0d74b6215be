#include "app/campaigns/CampaignStore.h"

#include "app/base/shownName.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QList<PageAction> CampaignStore::offered(const QString& record) {
  if (!record.isEmpty()) return {};
  const bool isFree = m_campaign.value() && !busy();
  const QString named = shownName(name());
  QList<PageAction> actions;
  if (const QString main = mainAction(); !main.isEmpty()) {
    const bool pauses = main == "pause"_L1;
    const QString title = pauses ? u"Pause"_s : main == "resume"_L1 ? u"Resume"_s : u"Launch"_s;
    actions.append({.key = main,
                    .title = title,
                    .icon = pauses ? u"media-playback-pause"_s : u"media-playback-start"_s,
                    .inPalette = title + u' ' + named,
                    .writes = true,
                    .possible = isFree,
                    .inMenu = false,
                    .run = [this, pauses] { pauses ? pause() : launch(); }});
  }
  actions.append(
      {{.key = u"rename"_s,
        .title = u"Rename"_s,
        .icon = u"document-edit"_s,
        .keys = u"F2"_s,
        .inPalette = u"Rename "_s + named,
        .writes = true,
        .possible = isFree,
        .run = [this] { beginRename(); }},
       {.key = u"duplicate"_s,
        .title = u"Duplicate"_s,
        .icon = u"edit-copy"_s,
        .inPalette = u"Duplicate "_s + named,
        .writes = true,
        .possible = isFree,
        .run = [this] { duplicate(); }},
       {.key = u"copy-link"_s,
        .title = u"Copy link"_s,
        .icon = u"insert-link"_s,
        .inPalette = u"Copy the link to "_s + named,
        .possible = m_campaign.value() != nullptr,
        .run = [this] { copyLink(); }},
       {.key = u"refresh"_s, .title = u"Refresh"_s, .icon = u"view-refresh"_s, .keys = u"F5"_s, .run = [this] {
          refreshShown();
        }}});
  actions += offeredInTabs();
  actions.append({.key = u"delete"_s,
                  .title = u"Delete"_s,
                  .icon = u"edit-delete"_s,
                  .inPalette = u"Delete "_s + named,
                  .writes = true,
                  .danger = true,
                  .possible = isFree,
                  .run = [this] { remove(); }});
  return actions;
}

/// What is some way into the page; the palette leads straight there.
QList<PageAction> CampaignStore::offeredInTabs() {
  QList<PageAction> actions;
  for (const Choice& tab : tabs())
    actions.append({.key = u"tab."_s + tab.key,
                    .title = tab.label,
                    .icon = u"mail-send"_s,
                    .inMenu = false,
                    .run = [this, key = tab.key] { setTab(key); }});
  const auto add = [this](const QString& way) {
    setTab(enumName(Tab::leads));
    m_leads.adding()->show(way);
  };
  for (const Choice& section : m_settings.sections())
    actions.append({.key = u"settings."_s + section.key,
                    .title = u"Settings › "_s + section.label,
                    .icon = u"configure"_s,
                    .inMenu = false,
                    .run = [this, key = section.key] { showSection(key); }});
  actions.append({{.key = u"add-leads.csv"_s,
                   .title = u"Add leads from a CSV file"_s,
                   .icon = u"list-add"_s,
                   .writes = true,
                   .inMenu = false,
                   .run = [add] { add(u"csv"_s); }},
                  {.key = u"add-leads.manual"_s,
                   .title = u"Add a lead by hand"_s,
                   .icon = u"list-add"_s,
                   .writes = true,
                   .inMenu = false,
                   .run = [add] { add(u"manual"_s); }},
                  {.key = u"add-email"_s,
                   .title = u"Add email"_s,
                   .icon = u"list-add"_s,
                   .writes = true,
                   .possible = m_campaign.value() != nullptr,
                   .inMenu = false,
                   .run =
                       [this] {
                         setTab(enumName(Tab::sequence));
                         m_sequence.writeNew();
                       }},
                  {.key = u"proof"_s,
                   .title = u"Proof wall"_s,
                   .icon = u"view-visible"_s,
                   .inPalette = u"Proof wall of "_s + shownName(name()),
                   .run = [this] { setTab(enumName(Tab::proof)); }},
                  {.key = u"test-email"_s,
                   .title = u"Send a test"_s,
                   .icon = u"mail-send"_s,
                   .writes = true,
                   .possible = m_campaign.value() != nullptr,
                   .inMenu = false,
                   .run = [this] {
                     setTab(enumName(Tab::sequence));
                     m_sequence.testEmail()->show();
                   }}});
  return actions;
}

}  // namespace orv
