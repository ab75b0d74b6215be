#include "app/settings/SettingsStore.h"
#include "tests/app/sweep/SweepStage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::test {
namespace {

SettingsStore& settings(SweepStage& s) { return s.the<SettingsStore>(); }

/// Somebody who may change things is at the tab.
std::function<void(SweepStage&)> at(const QString& tab) {
  return [tab](SweepStage& s) {
    s.answers[u"GET /"_s] = sample(u"WorkspaceDetail"_s);
    s.answers[u"GET /members"_s] = sample(u"MemberPage"_s);
    s.answers[u"GET /invites"_s] = sample(u"InvitePage"_s);
    WorkspaceSummary workspace = s.f.context->workspace();
    workspace.role = Role(u"owner"_s);
    s.f.context->setWorkspace(workspace);
    auto& store = s.show<SettingsStore>();
    store.setTab(tab);
    s.finish();
  };
}

const QStringList ofDetail{u"id"_s, u"slug"_s, u"name"_s, u"timeZone"_s, u"role"_s};

QVariant name(SweepStage& s) {
  const auto* detail = settings(s).workspace()->value();
  return detail ? detail->name : QString();
}

QVariant people(SweepStage& s) {
  QStringList all;
  for (const MemberRow& row : settings(s).members()->rows()->records()) all.append(row.id + row.role);
  for (const InviteRow& row : settings(s).invites()->rows()->records()) all.append(row.id);
  return all;
}

QList<SweepRow> workspaceRows() {
  SweepRow save{u"WorkspaceForm::save"_s,
                [](SweepStage& s) {
                  at(u"workspace"_s)(s);
                  // Where it is not on the screen a message tells as well.
                  settings(s).appear();
                  settings(s).workspaceForm()->set(u"name"_s, u"New"_s);
                },
                [](SweepStage& s) { settings(s).workspaceForm()->save(); },
                u"PATCH /"_s,
                sample(u"WorkspaceDetail"_s, {{u"name"_s, u"New"_s}, {u"version"_s, 4}}),
                ofDetail,
                [](SweepStage& s) { return settings(s).workspaceForm()->saving(); },
                name,
                [](SweepStage& s) { return settings(s).workspaceForm()->problem(); }};
  SweepRow blocklist{u"SettingsStore::setUnsubscribesToBlocklist"_s,
                     at(u"blocklist"_s),
                     [](SweepStage& s) { settings(s).setUnsubscribesToBlocklist(true); },
                     u"PATCH /"_s,
                     sample(u"WorkspaceDetail"_s, {{u"unsubscribesToBlocklist"_s, true}, {u"version"_s, 4}}),
                     ofDetail,
                     [](SweepStage& s) { return settings(s).savingBlocklist(); },
                     [](SweepStage& s) { return QVariant(settings(s).unsubscribesToBlocklist()); }};
  SweepRow client{
      u"ClientForm::submit"_s,
      [](SweepStage& s) {
        at(u"clients"_s)(s);
        settings(s).createClient();
        for (const auto& [field, text] : {std::pair{u"workspace"_s, u"Caldera"_s}, std::pair{u"name"_s, u"Pia"_s},
                                          std::pair{u"email"_s, u"p@c.d"_s}})
          settings(s).clientForm()->set(field, text);
      },
      [](SweepStage& s) { settings(s).clientForm()->submit(); },
      u"POST /client-workspaces"_s,
      sample(u"ClientWorkspace"_s),
      {u"id"_s},
      [](SweepStage& s) { return settings(s).clientForm()->busy(); },
      name,
      [](SweepStage& s) { return settings(s).clientForm()->error(); }};
  SweepRow deletion{u"SettingsStore::deleteWorkspace"_s,
                    at(u"workspace"_s),
                    [](SweepStage& s) { settings(s).deleteWorkspace(); },
                    u"DELETE /"_s,
                    {},
                    {},
                    [](SweepStage& s) { return settings(s).deleting(); },
                    [](SweepStage& s) { return QVariant(s.f.program.deleted); },
                    {},
                    false,
                    true};
  return {save, blocklist, client, deletion};
}

QList<SweepRow> memberRows() {
  const QByteArray changed =
      written({{u"userId"_s, u"u2"_s}, {u"email"_s, u"b@a.example"_s}, {u"role"_s, u"viewer"_s}});
  const auto busy = [](SweepStage& s) { return !settings(s).members()->busyIds().isEmpty(); };
  SweepRow role{u"MembersStore::changeRole"_s,
                at(u"members"_s),
                [](SweepStage& s) { settings(s).members()->changeRole(u"u2"_s, u"viewer"_s); },
                u"PATCH /members/u2"_s,
                changed,
                {u"userId"_s, u"email"_s, u"role"_s},
                busy,
                people};
  SweepRow remove{u"MembersStore::remove"_s,
                  at(u"members"_s),
                  [](SweepStage& s) { settings(s).members()->remove(u"u2"_s); },
                  u"DELETE /members/u2"_s,
                  {},
                  {},
                  busy,
                  people};
  SweepRow revoke{u"InvitesStore::revoke"_s,
                  at(u"members"_s),
                  [](SweepStage& s) { settings(s).invites()->revoke(u"i1"_s); },
                  u"DELETE /invites/i1"_s,
                  {},
                  {},
                  [](SweepStage& s) { return !settings(s).invites()->busyIds().isEmpty(); },
                  people};
  SweepRow invite{
      u"InviteForm::submit"_s,
      [](SweepStage& s) {
        at(u"members"_s)(s);
        settings(s).invite();
        settings(s).invites()->form()->set(u"email"_s, u"new@a.example"_s);
      },
      [](SweepStage& s) { settings(s).invites()->form()->submit(); },
      u"POST /invites"_s,
      written(
          {{u"id"_s, u"i9"_s}, {u"email"_s, u"new@a.example"_s}, {u"role"_s, u"member"_s}, {u"expiresAt"_s, u""_s}}),
      {u"id"_s, u"email"_s, u"role"_s, u"expiresAt"_s},
      [](SweepStage& s) { return settings(s).invites()->form()->busy(); },
      people,
      [](SweepStage& s) { return settings(s).invites()->form()->error(); }};
  return {role, remove, revoke, invite};
}

}  // namespace

QList<SweepRow> settingsRows() { return workspaceRows() + memberRows(); }

}  // namespace orv::test
