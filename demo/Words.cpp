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

const QStringList& firstNames() {
  static const QStringList list{u"Lena"_s,  u"Maris"_s, u"Ilze"_s, u"Tomas"_s, u"Sara"_s,
                                u"Jonas"_s, u"Noor"_s,  u"Elif"_s, u"Pavel"_s};
  return list;
}

const QStringList& lastNames() {
  static const QStringList list{u"Berg"_s,  u"Kalnins"_s, u"Okafor"_s, u"Silva"_s,
                                u"Novak"_s, u"Lind"_s,    u"Moreau"_s, u"Kaya"_s};
  return list;
}

const QStringList& titles() {
  static const QStringList list{u"Owner"_s, u"Head of Operations"_s, u"Office Manager"_s, u"Managing Director"_s,
                                u"Purchasing Lead"_s};
  return list;
}

}  // namespace orv::demo::words
