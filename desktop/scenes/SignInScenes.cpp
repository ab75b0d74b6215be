#include "desktop/scenes/Scene.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

void typeEmail(Stage& stage, const QString& email) {
  stage.app().signIn()->setEmail(email);
  stage.app().signIn()->submitEmail();
}

}  // namespace

QList<Scene> signInScenes() {
  QList<Scene> scenes{
      page(u"sign-in"_s, [](Stage&) {}),
      {u"sign-in-unknown"_s, [](Stage& s) { typeEmail(s, u"nobody@northgate.example"_s); }},
      {u"sign-in-password"_s, [](Stage& s) { typeEmail(s, u"maren@northgate.example"_s); }},
      {u"sign-in-password-wrong"_s,
       [](Stage& s) {
         typeEmail(s, u"maren@northgate.example"_s);
         s.settle();
         s.app().signIn()->setPassword(u"wrong"_s);
         s.app().signIn()->submitPassword();
       }},
      {u"sign-in-code"_s, [](Stage& s) { typeEmail(s, u"tomas@northgate.example"_s); }},
      {u"sign-in-code-wrong"_s,
       [](Stage& s) {
         typeEmail(s, u"tomas@northgate.example"_s);
         s.settle();
         s.app().signIn()->setCode(u"000000"_s);
         s.app().signIn()->submitCode();
       }},
      {u"sign-in-google"_s, [](Stage& s) { s.app().signIn()->continueWithGoogle(); }},
      {u"sign-in-offline"_s,
       [](Stage& s) {
         s.transport().mode = StagedTransport::Mode::offline;
         typeEmail(s, u"maren@northgate.example"_s);
       }},
  };
  for (Scene& scene : scenes) scene.signedIn = false;
  return scenes;
}

}  // namespace orv
