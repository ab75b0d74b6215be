#include "demo/LeadWords.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo::words {
namespace {

QStringList split(const QString& words) { return words.split(u", "_s); }

}  // namespace

const QList<Trade>& trades() {
  static const QList<Trade> list{
      {u"Insurance"_s, split(u"Brokers, Underwriters, Claims"_s),
       split(u"Assekuranz, Brokerage, Versicherungen, Risk, Cover"_s), split(u"fleet policies, liability, pensions"_s)},
      {u"Logistics and supply chain"_s, split(u"Freight, Warehousing, Couriers"_s),
       split(u"Logistics, Spedition, Haulage, Cargo, Depots"_s), split(u"dispatch, cold chain, customs"_s)},
      {u"Real estate"_s, split(u"Property management, Lettings, Developers"_s),
       split(u"Immobilien, Estates, Lettings, Habitat, Houses"_s), split(u"tenancies, facility, valuation"_s)},
      {u"Hospital and health care"_s, split(u"Dental, Physiotherapy, Private clinics"_s),
       split(u"Clinic, Dental, Praxis, Therapy, Sanatorium"_s), split(u"waiting lists, scheduling, recall"_s)},
      {u"Machinery"_s, split(u"Machine shops, Tooling, Pumps"_s),
       split(u"Maschinenbau, Tooling, Engineering, Pumps, Gears"_s), split(u"spare parts, maintenance, presses"_s)},
      {u"Computer software"_s, split(u"Payroll software, Security, Retail software"_s),
       split(u"Software, Systems, Labs, Data, Cloud"_s), split(u"integrations, payroll, audits"_s)},
      {u"Wholesale"_s, split(u"Food wholesale, Wine import, Building supplies"_s),
       split(u"Wholesale, Imports, Trading, Provisions, Supplies"_s), split(u"tenders, price lists, pallets"_s)},
      {u"Hospitality"_s, split(u"Boutique hotels, Restaurants, Catering"_s),
       split(u"Hotels, Catering, Tavern, Kitchens, Lodges"_s), split(u"bookings, seasonal staff, events"_s)},
      {u"Construction"_s, split(u"Roofing, Civil works, Interiors"_s),
       split(u"Bau, Roofing, Builders, Interiors, Concrete"_s), split(u"sites, subcontractors, permits"_s)},
      {u"Renewables"_s, split(u"Solar, Wind, Heat pumps"_s), split(u"Solar, Wind, Energy, Heatworks, Grid"_s),
       split(u"subsidies, storage, installation"_s)},
      {u"Accounting"_s, split(u"Tax, Audit, Bookkeeping"_s), split(u"Tax, Audit, Ledgers, Treuhand, Accounts"_s),
       split(u"payroll, year end, filings"_s)},
      {u"Marketing and advertising"_s, split(u"Branding, Performance, Print"_s),
       split(u"Media, Studio, Print, Reach, Campaigns"_s), split(u"retainers, creatives, trade shows"_s)},
      {u"Retail"_s, split(u"Fashion, Nurseries, Opticians"_s), split(u"Stores, Moda, Nursery, Optik, Outlet"_s),
       split(u"stock, loyalty, point of sale"_s)},
      {u"Education"_s, split(u"Language schools, Tutoring, Driving schools"_s),
       split(u"Academy, School, Tutors, Lessons, College"_s), split(u"enrolment, timetables, exams"_s)},
      {u"Automotive"_s, split(u"Dealers, Repair, Fleet service"_s), split(u"Autohaus, Garage, Motors, Fleet, Tyres"_s),
       split(u"leasing, workshop, fleet"_s)},
      {u"Law practice"_s, split(u"Labour law, Tax law, Notaries"_s),
       split(u"Legal, Notary, Kanzlei, Counsel, Chambers"_s), split(u"contracts, disputes, deeds"_s)},
  };
  return list;
}

const QList<Position>& positions() {
  static const QString owner = u"Owner"_s, chief = u"C-level"_s, director = u"Director"_s, head = u"Head"_s,
                       manager = u"Manager"_s, senior = u"Senior"_s;
  static const QString management = u"Management"_s, operations = u"Operations"_s, sales = u"Sales"_s,
                       finance = u"Finance"_s, it = u"IT"_s, people = u"People"_s;
  static const QList<Position> list{
      {u"Owner"_s, owner, management},
      {u"Managing director"_s, director, management},
      {u"Founder"_s, owner, management},
      {u"Head of operations"_s, head, operations},
      {u"Office manager"_s, manager, operations},
      {u"Chief executive"_s, chief, management},
      {u"Fleet manager"_s, manager, operations},
      {u"Head of sales"_s, head, sales},
      {u"Practice manager"_s, manager, operations},
      {u"Purchasing lead"_s, senior, operations},
      {u"Finance director"_s, director, finance},
      {u"Property manager"_s, manager, operations},
      {u"Sales director"_s, director, sales},
      {u"Chief operating officer"_s, chief, operations},
      {u"Marketing lead"_s, senior, sales},
      {u"Plant manager"_s, manager, operations},
      {u"IT director"_s, director, it},
      {u"HR manager"_s, manager, people},
      {u"Dispatch lead"_s, senior, operations},
      {u"Chief financial officer"_s, chief, finance},
      {u"Head of people"_s, head, people},
      {u"Store manager"_s, manager, sales},
      {u"Head of technology"_s, head, it},
      {u"Controller"_s, senior, finance},
  };
  return list;
}

const QList<Place>& places() {
  static const QString germany = u"Germany"_s, austria = u"Austria"_s, swiss = u"Switzerland"_s,
                       uk = u"United Kingdom"_s, us = u"United States"_s, spain = u"Spain"_s, dutch = u"Netherlands"_s,
                       latvia = u"Latvia"_s, sweden = u"Sweden"_s, ireland = u"Ireland"_s;
  static const QList<Place> list{
      {u"Munich"_s, u"Bavaria"_s, germany},
      {u"Hamburg"_s, u"Hamburg"_s, germany},
      {u"Cologne"_s, u"North Rhine"_s, germany},
      {u"Leipzig"_s, u"Saxony"_s, germany},
      {u"Kiel"_s, u"Holstein"_s, germany},
      {u"Stuttgart"_s, u"Swabia"_s, germany},
      {u"Vienna"_s, u"Vienna"_s, austria},
      {u"Graz"_s, u"Styria"_s, austria},
      {u"Linz"_s, u"Upper Austria"_s, austria},
      {u"Salzburg"_s, u"Salzburg"_s, austria},
      {u"Zurich"_s, u"Zurich"_s, swiss},
      {u"Basel"_s, u"Basel"_s, swiss},
      {u"Manchester"_s, u"Lancashire"_s, uk},
      {u"Bristol"_s, u"Somerset"_s, uk},
      {u"Leeds"_s, u"Yorkshire"_s, uk},
      {u"Glasgow"_s, u"Strathclyde"_s, uk},
      {u"Austin"_s, u"Texas"_s, us},
      {u"Denver"_s, u"Colorado"_s, us},
      {u"Portland"_s, u"Oregon"_s, us},
      {u"Columbus"_s, u"Ohio"_s, us},
      {u"Tampa"_s, u"Florida"_s, us},
      {u"Madison"_s, u"Wisconsin"_s, us},
      {u"Valencia"_s, u"Levante"_s, spain},
      {u"Bilbao"_s, u"Basque Country"_s, spain},
      {u"Seville"_s, u"Andalusia"_s, spain},
      {u"Utrecht"_s, u"Utrecht"_s, dutch},
      {u"Rotterdam"_s, u"South Holland"_s, dutch},
      {u"Eindhoven"_s, u"Brabant"_s, dutch},
      {u"Riga"_s, u"Riga"_s, latvia},
      {u"Liepaja"_s, u"Kurzeme"_s, latvia},
      {u"Malmo"_s, u"Scania"_s, sweden},
      {u"Uppsala"_s, u"Uppland"_s, sweden},
      {u"Cork"_s, u"Munster"_s, ireland},
      {u"Galway"_s, u"Connacht"_s, ireland},
  };
  return list;
}

const QStringList& technologies() {
  static const QStringList list = split(
      u"Webshop, Booking calendar, Ledger suite, Route planner, Chat widget, Tag manager, Mail relay, "
      "Payment page, Fleet tracker, Help desk, Data warehouse, Single sign-on, Survey forms, Ad pixels, "
      "Video calls, Static site, Content editor, Stock control, Time clock, Print portal"_s);
  return list;
}

const QStringList& fundings() {
  static const QStringList list = split(u"None, Seed, Series A, Series B, Series C, Private equity"_s);
  return list;
}

const QStringList& givenNames() {
  static const QStringList list = split(
      u"Anneliese, Bernd, Carla, Dieter, Esther, Florian, Gesa, Holger, Irmgard, Jannis, Karoline, Lorenz, "
      "Mira, Nuria, Olga, Paavo, Quirin, Rosa, Sander, Teresa, Ulrike, Vito, Wanda, Xenia, Yusuf, Zoe, Aisha, "
      "Bram, Ciara, Dario, Elif, Fergus, Greta, Hamza, Ines, Jorge"_s);
  return list;
}

const QStringList& familyNames() {
  static const QStringList list = split(
      u"Graf, Hollmann, Reinhardt, Laub, Vogt, Pichler, Brandt, Stein, Thoma, Weller, Petz, Amann, Sandner, "
      "Keil, Okafor, Silva, Novak, Moreau, Kaya, Jansen, Ozols, Kalnins, Virtanen, Lindqvist, Byrne, Doyle, "
      "Marsh, Aalto, Hartwig, Romero, Navarro, Iglesias, Visser, Mulder, Fischbach, Gruber, Huber, Zeller, "
      "Kovac, Nilsson, Ekholm, Murphy, Walsh, Carver, Whitlock, Hayes, Porter, Quint, Rossi, Dupont, Lefevre, "
      "Mercier, Adler, Busch, Conrad, Dreher, Ebert, Fink, Gallo, Ilves, Jung, Krause, Lange, Maurer, "
      "Niemann, Ott, Pohl, Rau, Sauer, Tauber"_s);
  return list;
}

const QList<Band>& sizes() {
  static const QList<Band> list{{1, 1, u"1–10"_s},         {2, 11, u"11–50"_s},      {3, 51, u"51–200"_s},
                                {4, 201, u"201–500"_s},    {5, 501, u"501–1,000"_s}, {6, 1001, u"1,001–5,000"_s},
                                {7, 5001, u"Over 5,000"_s}};
  return list;
}

const QList<Band>& revenues() {
  static const QList<Band> list{{1, 0, u"Under $1M"_s},
                                {2, 1, u"$1M–$10M"_s},
                                {3, 10, u"$10M–$50M"_s},
                                {4, 50, u"$50M–$100M"_s},
                                {5, 100, u"Over $100M"_s}};
  return list;
}

qint64 bandOf(const QList<Band>& bands, qint64 amount) {
  qint64 number = 0;
  for (const Band& band : bands)
    if (amount >= band.from) number = band.number;
  return number;
}

}  // namespace orv::demo::words
