#include "parameters/pages.h"

#include <algorithm>
#include <array>

#include "chart/account_field.h"
#include "ui/caption.h"

namespace tarvex::parges {
namespace {

using namespace ui;

constexpr int kPathWidth = 200;

struct Colour {
  std::string_view name;
  std::int32_t value;  // blue * 65536 + green * 256 + red
};
constexpr std::array<Colour, 9> kColours{{{"Predefinito", 0},
                                          {"Bianco", 0xFFFFFF},
                                          {"Grigio", 0x808080},
                                          {"Sabbia", 0xC4DCE8},
                                          {"Azzurro", 0xE8CFAE},
                                          {"Blu", 0x7A4A1E},
                                          {"Verde", 0x6B8A3D},
                                          {"Bordeaux", 0x3B2A7A},
                                          {"Nero", 0x202020}}};
constexpr std::string_view kOtherColour = "Altro colore";

void bindColour(Choice& choice, Bindings& bindings) {
  for (const Colour& colour : kColours) choice.addItem(colour.name);
  bindings.bind(
      [&choice](const rec::param& from) {
        const auto found = std::find_if(kColours.begin(), kColours.end(), [&](const Colour& colour) {
          return colour.value == from.coloresfondo;
        });
        if (found == kColours.end()) choice.addItem(kOtherColour);
        choice.select(static_cast<int>(found - kColours.begin()));
      },
      [&choice](rec::param& to) {
        const auto index = static_cast<std::size_t>(std::max(choice.index(), 0));
        if (index < kColours.size()) to.coloresfondo = kColours[index].value;
      });
}

std::vector<std::string> fontsOf(Desk& desk) {
  std::vector<std::string> fonts = desk.printerFonts();
  fonts.insert(fonts.begin(), std::string());  // none chosen: the usual one
  return fonts;
}

// On a yes the voice stands in session.pc.
bool isPostable(Session& session, const std::string& name) {
  return readVoice(session, name, 219) && session.pc.B.tipo != "m" && session.pc.B.tipo != "cc";
}

}  // namespace

PathField::PathField(Form& form, std::string_view name, std::string_view caption, std::string_view filter)
    : path(form, name, caption, Mask::text(kPathWidth)), browse(form, std::string(name) + "b", "Sfoglia...") {
  const std::string title = plainCaption(caption);
  browse.onPress = [this, &form, title, wanted = std::string(filter)] {
    if (const auto chosen = form.desk().chooseFile(title, wanted, false)) path.setText(*chosen);
  };
}

LookPage::LookPage(Form& form, Bindings& bindings)
    : colour(form, "coloresfondo", "Colore di sfondo:", Choice::Look::combo),
      ground(form, "immaginesfondo", "Immagine sfondo"),
      groundOfBar(form, "immaginelistbar", "Immagine sfondo listbar"),
      preset(form, "predefinita", {}, Choice::Look::options,
             {"Immagine scelta", "Impost. predefinite (1)", "Impost. predefinite (2)"}),
      picture(form, "percorsosfondo", "Immagine:", "Immagini (*.bmp *.png *.jpg *.jpeg)"),
      toolBar(form, "mostratoolbar", "Mostra toolbar"),
      toolStyle(form, "stiletoolbar", "Stile toolbar", Choice::Look::combo,
                {"Icone piccole", "1 - Icone medie", "2 - Icone grandi", "3 - Icone piccole con testo",
                 "4 - Icone medie con testo", "5 - Icone grandi con testo"}),
      sideBar(form, "mostralistbar", "Mostra listbar"),
      statusBar(form, "mostrastatusbar", "Mostra barra di stato"),
      agenda(form, "agendaavvio", "Mostra agenda all'avvio del programma") {
  bindColour(colour, bindings);
  bindings.bind(ground, &rec::param::immaginesfondo);
  bindings.bind(groundOfBar, &rec::param::immaginelistbar);
  bindings.bind(preset, &rec::param::predefinita, 0);
  bindings.bind(picture.path, &rec::param::percorsosfondo);
  bindings.bind(toolBar, &rec::param::mostratoolbar);
  bindings.bind(toolStyle, &rec::param::stiletoolbar, 0);
  bindings.bind(sideBar, &rec::param::mostralistbar);
  bindings.bind(statusBar, &rec::param::mostrastatusbar);
  bindings.bind(agenda, &rec::param::agendaavvio);
}

Layout LookPage::layout() const {
  return column({group("Sfondo", {row({colour}), row({ground}), row({groundOfBar}), row({preset}),
                                  row({picture.path, picture.browse})}),
                 group("Barre", {row({toolBar}), row({toolStyle}), row({sideBar}), row({statusBar})}),
                 group("Avvio", {row({agenda})})});
}

PrintPage::PrintPage(Form& form, Bindings& bindings)
    : font(form, "carattere", "Carattere di stampa", Choice::Look::combo),
      size(form, "corpostampa", "Dimensioni:", 4, 36),
      lines(form, "righepagina", "Numero righe per pagina:", 10, 150),
      setup(form, "impostastampante", "Imposta stampante "),
      zoom(form, "zoomanteprima", "Zoom anteprima:", Choice::Look::combo,
           {"50", "75", "100", "125", "150", "200"}),
      skipped(form, "saltorighesollecito", "Righe iniziali da saltare:", 0, 60),
      reminder(form, "testosollecito", "Testo del sollecito:", Memo::Look::plain, 2000, 8) {
  font.setItems(fontsOf(form.desk()));
  bindings.bind(font, &rec::param::carattere);
  bindings.bind(size, &rec::param::corpostampa);
  bindings.bind(lines, &rec::param::righepagina);
  bindings.bind(setup, &rec::param::impostastampante);
  bindings.bind(zoom, &rec::param::zoomanteprima);
  bindings.bind(skipped, &rec::param::saltorighesollecito);
  bindings.bind(
      [this](const rec::param& from) {
        std::size_t last = from.testosollecito.size();
        while (last > 1 && from.testosollecito[last - 1].empty()) --last;
        std::string text;
        for (std::size_t i = 1; i < last; ++i) text += (i > 1 ? "\n" : "") + from.testosollecito[i];
        reminder.setText(text);
      },
      [this](rec::param& to) {
        std::fill(to.testosollecito.begin() + 1, to.testosollecito.end(), std::string());
        std::string text = reminder.plainText();
        for (std::size_t i = 1; i < to.testosollecito.size() && !text.empty(); ++i) {
          const std::size_t end = std::min(text.find('\n'), text.size());
          to.testosollecito[i] = text.substr(0, end);
          text.erase(0, end + 1);
        }
      });
}

Layout PrintPage::layout() const {
  return column({group("Stampe", {row({font, size}), row({lines, zoom}), row({setup})}),
                 group("Solleciti di pagamento", {row({skipped}), reminder})});
}

DocumentsPage::DocumentsPage(Form& form, Session& session, Bindings& bindings)
    : preload(form, "precaricadoc", "Precarica emiss. doc."),
      negativeDueDates(
          form, "ncrimesse",
          "Registrazione nello scadenzario rimesse dirette della nota credito (importo negativo)"),
      returns(form, "resonotacredito", "Registrazione reso cliente da nota credito"),
      separateVat(form, "ivaseparata",
                  "Registrazione separata iva spese varie esenti, in fattura esente iva"),
      serviceVoice(form, "contoservizio", "Contropartita fattura di servizio:", Mask::text(30)),
      imagesOfSales(form, "immaginivendita", "Registra immagine fattura vendita"),
      imagesOfPurchases(form, "immaginiacquisto", "Registra immagine fattura acquisto"),
      imagesAsk(form, "immaginiconferma", "Richiesta conferma"),
      imageFormat(form, "formatoimmagine", "Formato:", Choice::Look::options, {"JPEG", "BMP", "TIF"}),
      images(form, "percorsoimmagini", "Percorso", "Cartelle (*)") {
  bindings.bind(preload, &rec::param::precaricadoc);
  bindings.bind(negativeDueDates, &rec::param::ncrimesse);
  bindings.bind(returns, &rec::param::resonotacredito);
  bindings.bind(separateVat, &rec::param::ivaseparata);
  bindServiceVoice(session, bindings);
  bindImages(bindings);
  bindings.bind(imageFormat, &rec::param::formatoimmagine, 1);
  bindings.bind(images.path, &rec::param::percorsoimmagini);
}

// A key that is no voice of the open company may be one of another's: it stays while nothing is typed.
void DocumentsPage::bindServiceVoice(Session& session, Bindings& bindings) {
  accountField(session, serviceVoice, {"s"}, SearchList::sottoconti);
  serviceVoice.onLeave = [this, &session] {
    if (serviceVoice.empty() || isPostable(session, serviceVoice.text())) return Leave::go;
    session.desk().beep();
    return Leave::stay;
  };
  bindings.bind(
      [this, &session](const rec::param& from) {
        const bool known =
            !from.contoservizio.empty() && readVoiceByCode(session, from.contoservizio, 218);
        serviceVoice.setText(known ? session.pc.B.ragsoc : "");
      },
      [this, &session](rec::param& to) {
        if (!serviceVoice.empty() && isPostable(session, serviceVoice.text()))
          to.contoservizio = session.pc.primaryKey();
        else if (serviceVoice.empty() && readVoiceByCode(session, to.contoservizio, 217))
          to.contoservizio.clear();
      });
}

// One number holds the three switches: 1 sales, 2 purchases, 3 both, 10 more to be asked.
void DocumentsPage::bindImages(Bindings& bindings) {
  bindings.bind(
      [this](const rec::param& from) {
        const int kinds = from.immaginidoc % 10;
        imagesOfSales.set(kinds == 1 || kinds == 3);
        imagesOfPurchases.set(kinds == 2 || kinds == 3);
        imagesAsk.set(from.immaginidoc >= 10);
      },
      [this](rec::param& to) {
        to.immaginidoc = static_cast<std::int16_t>(
            (imagesOfSales.on() ? 1 : 0) + (imagesOfPurchases.on() ? 2 : 0) + (imagesAsk.on() ? 10 : 0));
      });
}

Layout DocumentsPage::layout() const {
  return column({group("Emissione e registrazione",
                       {row({preload}), row({negativeDueDates}), row({returns}), row({separateVat})}),
                 group("Fattura di servizio", {row({serviceVoice})}),
                 group("Immagini", {row({imagesOfSales}), row({imagesOfPurchases}), row({imagesAsk}),
                                    row({imageFormat}), row({images.path, images.browse})})});
}

VatPage::VatPage(Form& form, Session& session, Bindings& bindings)
    : transport(form, "ivatrasporto", "Codice iva spese trasporto:", Choice::Look::combo),
      packing(form, "ivaimballo", "Codice iva spese imballo:", Choice::Look::combo),
      various(form, "ivavarie", "Codice iva spese varie:", Choice::Look::combo),
      stamp(form, "ivabollo", "Codice iva spese bollo:", Choice::Look::combo),
      least(form, "minimoiva", "Importo minimo iva a debito:", Mask::amount()),
      weighted(form, "ponderatoiva", "Calcolo ponderato iva spese accessorie"),
      bands(form, "bolli", 6),
      limit(bands, "limite", "Bollo", 14),
      threshold(bands, "bollosoglia", "Soglia:", Mask::amount()),
      duty(bands, "bolloimporto", "Importo:", Mask::amount()) {
  std::vector<std::string> codes{""};
  session.civa.bof(0);
  while (session.civa.next(0) == store::kOk)
    if (!session.civa.B.codice.empty()) codes.push_back(session.civa.B.codice);
  using Text = Bindings::Text;
  const std::pair<Choice*, Text> charges[] = {{&transport, &rec::param::ivatrasporto},
                                              {&packing, &rec::param::ivaimballo},
                                              {&various, &rec::param::ivavarie},
                                              {&stamp, &rec::param::ivabollo}};
  for (const auto& [combo, field] : charges) {
    combo->setItems(codes);
    bindings.bind(*combo, field);
  }
  bindings.bind(least, &rec::param::minimoiva);
  bindings.bind(weighted, &rec::param::ponderatoiva);
  using Number = Bindings::Number;
  constexpr std::pair<Number, Number> pairs[] = {{&rec::param::bollosoglia1, &rec::param::bolloimporto1},
                                                 {&rec::param::bollosoglia2, &rec::param::bolloimporto2},
                                                 {&rec::param::bollosoglia3, &rec::param::bolloimporto3},
                                                 {&rec::param::bollosoglia4, &rec::param::bolloimporto4},
                                                 {&rec::param::bollosoglia5, &rec::param::bolloimporto5},
                                                 {&rec::param::bollosoglia6, &rec::param::bolloimporto6}};
  for (int i = 1; i <= bands.rows(); ++i) {
    limit[i].setText(i < bands.rows() ? "Fino a Euro:" : "Oltre Euro:");
    bindings.bind(threshold[i], pairs[i - 1].first);
    bindings.bind(duty[i], pairs[i - 1].second);
  }
}

Layout VatPage::layout() const {
  return column(
      {group("Spese accessorie", {row({transport, packing}), row({various, stamp}), row({weighted})}),
       group("Liquidazione", {row({least})}), group("Imposta di bollo", {bands})});
}

WarehousePage::WarehousePage(Form& form, Bindings& bindings)
    : easyBarcodes(form, "barrefacile", "Inserimento facilitato codice a barre"),
      quantityOne(form, "quantitauno", "Inserimento automatico quantità '1'"),
      warnMinimum(form, "segnalascorta", "Segnala articoli fuori scorta"),
      warnStock(form, "segnalaesistenza", "Segnala articoli fuori esistenza"),
      warnAvailable(form, "segnaladisponibilita", "Segnala articoli fuori disponibilità"),
      alwaysCard(form, "schedasempre", "Mostra sempre scheda visualizzazione"),
      decimalsOfParts(form, "decimalicomponenti", "Numero decimali prezzo componente distinta base:", 2, 5),
      decimalsOfPrices(form, "decimaliprezzi", "Numero decimali prezzo unitario articolo magazzino:", 2, 5),
      nextStart(form, "avviso1") {
  nextStart.setText("(Il programma deve essere riavviato per rendere effettiva la scelta)");
  bindings.bind(easyBarcodes, &rec::param::barrefacile);
  bindings.bind(quantityOne, &rec::param::quantitauno);
  bindings.bind(warnMinimum, &rec::param::segnalascorta);
  bindings.bind(warnStock, &rec::param::segnalaesistenza);
  bindings.bind(warnAvailable, &rec::param::segnaladisponibilita);
  bindings.bind(alwaysCard, &rec::param::schedasempre);
  bindings.bind(decimalsOfParts, &rec::param::decimalicomponenti);
  bindings.bind(decimalsOfPrices, &rec::param::decimaliprezzi);
}

Layout WarehousePage::layout() const {
  return column({group("Inserimento", {row({easyBarcodes}), row({quantityOne}), row({alwaysCard})}),
                 group("Segnalazioni", {row({warnMinimum}), row({warnStock}), row({warnAvailable})}),
                 group("Decimali", {row({decimalsOfParts}), row({decimalsOfPrices}), row({nextStart})})});
}

SearchPage::SearchPage(Form& form, Bindings& bindings)
    : most(form, "maxricerca", "Massimo numero descrizioni nelle finestre di ricerca:", 1, 5000),
      previous(form, "descrprecedenti", "Visualizza anche descrizioni precedenti"),
      completion(form, "completamento", "Completamento automatico descrizioni"),
      backupDays(form, "giornibackup", "Segnalazione backup giorni:", 0, 999),
      excel(form, "usaexcel", "Carica dati in Excel al posto del foglio elettronico di Tarvex"),
      excelPath(form, "percorsoexcel", "Percorso completo del programma Excel.exe ", "Programmi (*)"),
      internet(form, "internetdiretto", "Connessione diretta Internet") {
  bindings.bind(most, &rec::param::maxricerca);
  bindings.bind(previous, &rec::param::descrprecedenti);
  bindings.bind(completion, &rec::param::completamento);
  bindings.bind(backupDays, &rec::param::giornibackup);
  bindings.bind(excel, &rec::param::usaexcel);
  bindings.bind(excelPath.path, &rec::param::percorsoexcel);
  bindings.bind(internet, &rec::param::internetdiretto);
}

Layout SearchPage::layout() const {
  return column(
      {group("Ricerche", {row({most}), row({previous}), row({completion})}),
       group("Backup", {row({backupDays})}),
       group("Programmi", {row({excel}), row({excelPath.path, excelPath.browse}), row({internet})})});
}

TelephonePage::TelephonePage(Form& form, Bindings& bindings)
    : dialling(form, "tipocomposizione", "Composizione:", Choice::Look::options, {"Toni", "Impulsi"}),
      port(form, "portamodem", "Porta modem:", Choice::Look::options, {"Com1", "Com2", "Com3"}),
      line(form, "accessolinea", "Accesso linea centralino:", Mask::text(10)),
      prefix(form, "prefissoesterno", "Anteporre al numero da comporre :", Mask::text(10)),
      digits(form, "nonprefisso", "escluso i numeri le cui prime:", 0, 15),
      first(form, "primecifre", "cifre corrispondono a:", Mask::digits(15)) {
  bindings.bind(dialling, &rec::param::tipocomposizione, 1);
  bindings.bind(port, &rec::param::portamodem, 1);
  bindings.bind(line, &rec::param::accessolinea);
  bindings.bind(prefix, &rec::param::prefissoesterno);
  bindings.bind(digits, &rec::param::nonprefisso);
  bindings.bind(first, &rec::param::primecifre);
}

Layout TelephonePage::layout() const {
  return column({group("Modem", {row({dialling}), row({port})}),
                 group("Numero da comporre", {row({line}), row({prefix}), row({digits, first})})});
}

namespace {

constexpr int kShown = 10, kPages = 5;

template <class Stored>
void bindTexts(Bindings& bindings, std::vector<std::string>& texts, Stored rec::param::*field,
               std::function<void()> shown) {
  bindings.bind(
      [&texts, field, shown](const rec::param& from) {
        texts.assign((from.*field).begin(), (from.*field).end());
        shown();
      },
      [&texts, field](rec::param& to) { std::copy(texts.begin(), texts.end(), (to.*field).begin()); });
}

}  // namespace

ListsPage::ListsPage(Form& form, Bindings& bindings)
    : parcels(form, "colli", kShown, kPages),
      look(parcels, "aspetticolli", "Aspetto esteriore dei colli", Mask::text(30)),
      addresses(form, "rubrica", kShown, kPages),
      name(addresses, "nominativi", "Nominativo", Mask::text(30)),
      address(addresses, "indirizzi", "Indirizzo", Mask::text(40)) {
  bindColumn(look, looks_);
  bindColumn(name, names_);
  bindColumn(address, addressTexts_);
  parcels.onPage = [this] { showPage(look, looks_); };
  addresses.onPage = [this] {
    showPage(name, names_);
    showPage(address, addressTexts_);
  };
  bindTexts(bindings, looks_, &rec::param::aspetticolli, parcels.onPage);
  bindTexts(bindings, names_, &rec::param::nominativi, [this] { showPage(name, names_); });
  bindTexts(bindings, addressTexts_, &rec::param::indirizzi, [this] { showPage(address, addressTexts_); });
}

void ListsPage::bindColumn(GridColumn& column, Texts& texts) {
  texts.resize(1 + std::size_t{kShown} * kPages);
  column.onEach([&column, &texts](Field& cell, int row) {
    cell.onChange = [&column, &texts, &cell, row] {
      texts[static_cast<std::size_t>(column.grid().line(row))] = cell.text();
    };
  });
}

void ListsPage::showPage(const GridColumn& column, const Texts& texts) {
  for (int row = 1; row <= column.grid().rows(); ++row)
    column[row].setText(texts[static_cast<std::size_t>(column.grid().line(row))]);
}

Layout ListsPage::layout() const { return side({column({parcels}), column({addresses})}); }

}  // namespace tarvex::parges
