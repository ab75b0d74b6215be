#include "demo/Words.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo::words {

const QStringList& industries() {
  static const QStringList list{u"Dental clinics"_s,    u"Law firms"_s,        u"Machine shops"_s,  u"Wine importers"_s,
                                u"Property managers"_s, u"Software vendors"_s, u"Print shops"_s,    u"Car dealers"_s,
                                u"Caterers"_s,          u"Architects"_s,       u"Freight agents"_s, u"Nurseries"_s};
  return list;
}

const QStringList& regions() {
  static const QStringList list{u"Nordics"_s, u"DACH"_s,  u"Iberia"_s, u"Baltics"_s, u"Ireland"_s, u"Benelux"_s,
                                u"Alps"_s,    u"Italy"_s, u"France"_s, u"Poland"_s,  u"Greece"_s,  u"Scotland"_s};
  return list;
}

const QStringList& cities() {
  static const QStringList list{u"Ghent"_s, u"Malmö"_s,   u"Porto"_s,  u"Kraków"_s, u"Tartu"_s,  u"Lyon"_s,
                                u"Graz"_s,  u"Bologna"_s, u"Cork"_s,   u"Leeds"_s,  u"Aarhus"_s, u"Utrecht"_s,
                                u"Ulm"_s,   u"Bilbao"_s,  u"Kaunas"_s, u"Basel"_s,  u"Patras"_s, u"Dundee"_s};
  return list;
}

const QStringList& companies() {
  static const QStringList list{
      u"Halden"_s,  u"Ardmore"_s, u"Larkhill"_s, u"Fjordvik"_s,   u"Maasveld"_s, u"Kestrel"_s,   u"Lindqvist"_s,
      u"Weiss"_s,   u"Brandl"_s,  u"Sundby"_s,   u"Porto Alto"_s, u"Tamme"_s,    u"Castellan"_s, u"Oakmere"_s,
      u"Verhage"_s, u"Nordkap"_s, u"Bellavia"_s, u"Kowal"_s,      u"Whitby"_s,   u"Etxe"_s,      u"Delorme"_s,
      u"Rasmus"_s,  u"Grüner"_s,  u"Silvano"_s,  u"Balmoral"_s,   u"Vantaa"_s,   u"Heidkamp"_s,  u"Marenco"_s};
  return list;
}

const QStringList& firstNames() {
  static const QStringList list{u"Lena"_s,   u"Maris"_s,  u"Ilze"_s,  u"Tomas"_s,  u"Sara"_s,   u"Jonas"_s,
                                u"Noor"_s,   u"Elif"_s,   u"Pavel"_s, u"Ingrid"_s, u"Declan"_s, u"Amaia"_s,
                                u"Katrin"_s, u"Oliver"_s, u"Marta"_s, u"Henrik"_s, u"Chiara"_s, u"Luc"_s,
                                u"Agnes"_s,  u"Piotr"_s,  u"Rosa"_s,  u"Niall"_s,  u"Yara"_s,   u"Bram"_s};
  return list;
}

const QStringList& lastNames() {
  static const QStringList list{u"Berg"_s,   u"Kalnins"_s, u"Okafor"_s,  u"Silva"_s,   u"Novak"_s,   u"Lind"_s,
                                u"Moreau"_s, u"Kaya"_s,    u"Verbeke"_s, u"Solheim"_s, u"Conti"_s,   u"Doyle"_s,
                                u"Jansen"_s, u"Haas"_s,    u"Pereira"_s, u"Wolska"_s,  u"Sandvik"_s, u"Fabre"_s,
                                u"Murray"_s, u"Costa"_s,   u"Becker"_s,  u"Nowicki"_s, u"Ozols"_s,   u"Lynch"_s};
  return list;
}

const QStringList& titles() {
  static const QStringList list{u"Owner"_s, u"Head of Operations"_s, u"Office Manager"_s, u"Managing Director"_s,
                                u"Purchasing Lead"_s};
  return list;
}

}  // namespace orv::demo::words
