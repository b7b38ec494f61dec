#include "piattaforma/griglia.h"

#include "piattaforma/erroreesecuzione.h"

#include <QBrush>
#include <QCollator>
#include <QFont>
#include <QLocale>

#include <algorithm>
#include <charconv>
#include <numeric>
#include <string>

using namespace Qt::StringLiterals;

namespace {

const QColor coloreFisse(224, 224, 224);

// Length of the number the (already trimmed) text starts with, 0 if none.
qsizetype lunghezzaNumero(QStringView t) {
    qsizetype i = 0;
    const qsizetype n = t.size();
    if (i < n && (t[i] == u'+' || t[i] == u'-'))
        ++i;
    const qsizetype inizioCifre = i;
    while (i < n && t[i].isDigit() && t[i].unicode() < 128)
        ++i;
    qsizetype cifre = i - inizioCifre;
    if (i + 1 < n && (t[i] == u'.' || t[i] == u',') && t[i + 1].unicode() < 128 &&
        t[i + 1].isDigit()) {
        const qsizetype punto = i++;
        while (i < n && t[i].isDigit() && t[i].unicode() < 128)
            ++i;
        cifre += i - punto - 1;
    }
    return cifre > 0 ? i : 0;
}

Qt::Alignment allineamentoQt(Griglia::Allineamento a, bool numero) {
    using A = Griglia::Allineamento;
    switch (a) {
    case A::SinistraAlto:
        return Qt::AlignLeft | Qt::AlignTop;
    case A::SinistraCentro:
        return Qt::AlignLeft | Qt::AlignVCenter;
    case A::SinistraBasso:
        return Qt::AlignLeft | Qt::AlignBottom;
    case A::CentroAlto:
        return Qt::AlignHCenter | Qt::AlignTop;
    case A::CentroCentro:
        return Qt::AlignHCenter | Qt::AlignVCenter;
    case A::CentroBasso:
        return Qt::AlignHCenter | Qt::AlignBottom;
    case A::DestraAlto:
        return Qt::AlignRight | Qt::AlignTop;
    case A::DestraCentro:
        return Qt::AlignRight | Qt::AlignVCenter;
    case A::DestraBasso:
        return Qt::AlignRight | Qt::AlignBottom;
    case A::Generale:
        break;
    }
    return (numero ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

} // namespace

// --- Blocco

Griglia::Blocco::Blocco(Griglia *griglia)
    : m_griglia(griglia) {
    m_griglia->apriBlocco();
}

Griglia::Blocco::Blocco(Blocco &&altro) noexcept
    : m_griglia(std::exchange(altro.m_griglia, nullptr)) {}

Griglia::Blocco::~Blocco() {
    if (m_griglia)
        m_griglia->chiudiBlocco();
}

Griglia::Blocco Griglia::inBlocco() {
    return Blocco(this);
}

void Griglia::apriBlocco() {
    if (m_blocchi++ == 0)
        beginResetModel();
}

void Griglia::chiudiBlocco() {
    if (--m_blocchi > 0)
        return;
    endResetModel();
    if (std::exchange(m_dimensioniInSospeso, false))
        emit dimensioniCambiate();
}

// --- shape

Griglia::Griglia(int righe, int colonne, QObject *parent)
    : QAbstractTableModel(parent) {
    controllaDimensione(righe);
    controllaDimensione(colonne);
    m_colonne = colonne;
    m_larghezze.assign(colonne, LarghezzaPredefinita);
    m_allineamentiColonna.assign(colonne, Allineamento::Generale);
    m_righe.resize(righe, nuovaRiga());
}

Griglia::~Griglia() = default;

void Griglia::controlla(int r, int c) const {
    controllaRiga(r);
    controllaColonna(c);
}

void Griglia::controllaRiga(int r) const {
    if (r < 0 || r >= righe())
        throw ErroreEsecuzione(u"Indice di riga o di colonna non valido nella griglia."_s);
}

void Griglia::controllaColonna(int c) const {
    if (c < 0 || c >= m_colonne)
        throw ErroreEsecuzione(u"Indice di riga o di colonna non valido nella griglia."_s);
}

void Griglia::controllaDimensione(int n) const {
    if (n < 0)
        throw ErroreEsecuzione(u"Numero di righe o di colonne non valido per la griglia."_s);
}

Griglia::Riga Griglia::nuovaRiga() const {
    Riga riga;
    riga.celle.resize(m_colonne);
    return riga;
}

void Griglia::setRighe(int n) {
    controllaDimensione(n);
    const int prima = righe();
    if (n == prima)
        return;
    const bool segnala = !bloccata();
    if (n > prima) {
        if (segnala)
            beginInsertRows({}, prima, n - 1);
        m_righe.resize(n, nuovaRiga());
        if (segnala)
            endInsertRows();
    } else {
        if (segnala)
            beginRemoveRows({}, n, prima - 1);
        m_righe.resize(n);
        if (segnala)
            endRemoveRows();
    }
}

void Griglia::setColonne(int n) {
    controllaDimensione(n);
    const int prima = m_colonne;
    if (n == prima)
        return;
    const bool segnala = !bloccata();
    if (segnala) {
        if (n > prima)
            beginInsertColumns({}, prima, n - 1);
        else
            beginRemoveColumns({}, n, prima - 1);
    }
    m_colonne = n;
    for (Riga &riga : m_righe) {
        riga.celle.resize(n);
        if (!riga.formati.empty())
            riga.formati.resize(n);
    }
    m_larghezze.resize(n, LarghezzaPredefinita);
    m_allineamentiColonna.resize(n, Allineamento::Generale);
    if (segnala) {
        if (n > prima)
            endInsertColumns();
        else
            endRemoveColumns();
    }
}

void Griglia::setRigheFisse(int n) {
    controllaDimensione(n);
    if (n == m_righeFisse)
        return;
    m_righeFisse = n;
    // Backgrounds and the header row both depend on it.
    if (!bloccata()) {
        if (righe() > 0 && m_colonne > 0)
            emit dataChanged(index(0, 0), index(righe() - 1, m_colonne - 1));
        if (m_colonne > 0)
            emit headerDataChanged(Qt::Horizontal, 0, m_colonne - 1);
    }
    dimensioniModificate();
}

void Griglia::setColonneFisse(int n) {
    controllaDimensione(n);
    if (n == m_colonneFisse)
        return;
    m_colonneFisse = n;
    if (!bloccata() && righe() > 0 && m_colonne > 0)
        emit dataChanged(index(0, 0), index(righe() - 1, m_colonne - 1));
    dimensioniModificate();
}

// --- text and rows

QString Griglia::testo(int r, int c) const {
    controlla(r, c);
    return m_righe[r].celle[c];
}

void Griglia::setTesto(int r, int c, const QString &t) {
    controlla(r, c);
    m_righe[r].celle[c] = t;
    celleCambiate(r, c, r, c, {Qt::DisplayRole, Qt::TextAlignmentRole});
}

void Griglia::rimuoviRiga(int r) {
    controllaRiga(r);
    const bool segnala = !bloccata();
    if (segnala)
        beginRemoveRows({}, r, r);
    m_righe.erase(m_righe.begin() + r);
    if (segnala)
        endRemoveRows();
}

void Griglia::rimuoviRighe(const QList<int> &righeDaTogliere) {
    if (righeDaTogliere.isEmpty())
        return;
    std::vector<bool> togli(m_righe.size(), false);
    for (const int r : righeDaTogliere) {
        controllaRiga(r);
        togli[r] = true;
    }
    // One pass that keeps the order of the rows that stay, and one reset for the view.
    const bool segnala = !bloccata();
    if (segnala)
        beginResetModel();
    std::size_t scritte = 0;
    for (std::size_t r = 0; r < m_righe.size(); ++r)
        if (!togli[r])
            m_righe[scritte++] = std::move(m_righe[r]);
    m_righe.resize(scritte);
    if (segnala)
        endResetModel();
}

void Griglia::aggiungiRiga(const QStringList &celle) {
    Riga riga = nuovaRiga();
    std::copy_n(celle.cbegin(), std::min<qsizetype>(celle.size(), m_colonne), riga.celle.begin());
    const bool segnala = !bloccata();
    if (segnala)
        beginInsertRows({}, righe(), righe());
    m_righe.push_back(std::move(riga));
    if (segnala)
        endInsertRows();
}

void Griglia::pulisci() {
    for (Riga &riga : m_righe) {
        for (QString &cella : riga.celle)
            cella.clear();
        riga.formati.clear();
    }
    m_nomiCaratteri.clear();
    m_suggerimenti.clear();
    celleCambiate(0, 0, righe() - 1, m_colonne - 1);
}

// --- numeric sort

std::optional<double> Griglia::valoreNumerico(QStringView testo) {
    const QStringView t = testo.trimmed();
    const qsizetype n = lunghezzaNumero(t);
    if (n == 0)
        return std::nullopt;
    std::string cifre;
    cifre.reserve(n);
    for (qsizetype i = 0; i < n; ++i) {
        const char16_t ch = t[i].unicode();
        if (ch == u'+')
            continue; // from_chars takes no plus sign
        cifre.push_back(ch == u',' ? '.' : char(ch));
    }
    double valore = 0;
    std::from_chars(cifre.data(), cifre.data() + cifre.size(), valore);
    return valore;
}

bool Griglia::eNumero(QStringView testo) {
    const QStringView t = testo.trimmed();
    return !t.isEmpty() && lunghezzaNumero(t) == t.size();
}

std::optional<double> Griglia::numeroSemplice(QStringView testo) {
    const QStringView t = testo.trimmed();
    if (t.isEmpty() || t.front() == u'+' || lunghezzaNumero(t) != t.size())
        return std::nullopt;
    const QStringView cifre = t.front() == u'-' ? t.mid(1) : t;
    qsizetype intere = 0;
    while (intere < cifre.size() && cifre[intere].isDigit())
        ++intere;
    if (intere == 0 || (intere > 1 && cifre.front() == u'0'))
        return std::nullopt;
    const qsizetype tutte = cifre.size() - (intere < cifre.size() ? 1 : 0);
    if (tutte > 15)
        return std::nullopt;
    const double valore = *valoreNumerico(t);
    return valore == 0 ? 0.0 : valore;
}

void Griglia::ordinaNumerico(int colonna, Verso verso) {
    controllaColonna(colonna);
    const int primo = std::min(m_righeFisse, righe());
    const int quante = righe() - primo;

    // Read every key once, then sort indices: 19683 rows in a few milliseconds.
    std::vector<std::optional<double>> chiavi(quante);
    for (int i = 0; i < quante; ++i)
        chiavi[i] = valoreNumerico(m_righe[primo + i].celle[colonna]);
    std::vector<int> ordine(quante);
    std::iota(ordine.begin(), ordine.end(), 0);
    const bool crescente = verso == Verso::Crescente;
    std::stable_sort(ordine.begin(), ordine.end(), [&](int a, int b) {
        const auto &x = chiavi[a];
        const auto &y = chiavi[b];
        if (!x || !y)
            return x && !y; // no number stands below every number
        return crescente ? *x < *y : *x > *y;
    });
    riordina(ordine);
}

void Griglia::ordinaTesto(int colonna, Verso verso) {
    controllaColonna(colonna);
    const int primo = std::min(m_righeFisse, righe());
    const int quante = righe() - primo;

    QCollator collatore(QLocale(QLocale::Italian, QLocale::Italy));
    collatore.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<QString> chiavi(quante);
    for (int i = 0; i < quante; ++i)
        chiavi[i] = m_righe[primo + i].celle[colonna].trimmed();
    std::vector<int> ordine(quante);
    std::iota(ordine.begin(), ordine.end(), 0);
    const bool crescente = verso == Verso::Crescente;
    std::stable_sort(ordine.begin(), ordine.end(), [&](int a, int b) {
        const QString &x = chiavi[a];
        const QString &y = chiavi[b];
        if (x.isEmpty() || y.isEmpty())
            return !x.isEmpty() && y.isEmpty(); // empty cells stand below every name
        const int confronto = collatore.compare(x, y);
        return crescente ? confronto < 0 : confronto > 0;
    });
    riordina(ordine);
}

void Griglia::riordina(const std::vector<int> &ordine) {
    if (std::is_sorted(ordine.begin(), ordine.end()))
        return;
    const int primo = std::min(m_righeFisse, righe());
    const int quante = static_cast<int>(ordine.size());

    const bool segnala = !bloccata();
    if (segnala)
        emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    std::vector<Riga> ordinate;
    ordinate.reserve(quante);
    std::vector<int> nuovaPosizione(quante);
    for (int i = 0; i < quante; ++i) {
        ordinate.push_back(std::move(m_righe[primo + ordine[i]]));
        nuovaPosizione[ordine[i]] = i;
    }
    std::move(ordinate.begin(), ordinate.end(), m_righe.begin() + primo);
    if (segnala) {
        const QModelIndexList vecchi = persistentIndexList();
        QModelIndexList nuovi;
        nuovi.reserve(vecchi.size());
        for (const QModelIndex &i : vecchi) {
            const int r = i.row() < primo ? i.row() : primo + nuovaPosizione[i.row() - primo];
            nuovi.append(index(r, i.column()));
        }
        changePersistentIndexList(vecchi, nuovi);
        emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
    }
}

// --- sizes

int Griglia::twipsInPixel(int twips) {
    return (twips + TwipsPerPixel / 2) / TwipsPerPixel;
}

int Griglia::larghezzaColonna(int c) const {
    controllaColonna(c);
    return m_larghezze[c];
}

void Griglia::setLarghezzaColonna(int c, int twips) {
    controllaColonna(c);
    if (twips < 0)
        throw ErroreEsecuzione(u"Larghezza di colonna non valida nella griglia."_s);
    if (m_larghezze[c] == twips)
        return;
    m_larghezze[c] = twips;
    dimensioniModificate();
}

int Griglia::altezzaRiga(int r) const {
    controllaRiga(r);
    return m_righe[r].altezza >= 0 ? m_righe[r].altezza : m_altezzaRighe;
}

void Griglia::setAltezzaRiga(int r, int twips) {
    controllaRiga(r);
    if (twips < 0)
        throw ErroreEsecuzione(u"Altezza di riga non valida nella griglia."_s);
    const int propria = twips == m_altezzaRighe ? -1 : twips; // 0 hides the row
    if (m_righe[r].altezza == propria)
        return;
    m_righe[r].altezza = propria;
    dimensioniModificate();
}

void Griglia::setAltezzaRighe(int twips) {
    if (twips < 0)
        throw ErroreEsecuzione(u"Altezza di riga non valida nella griglia."_s);
    m_altezzaRighe = twips;
    for (Riga &riga : m_righe)
        riga.altezza = -1;
    dimensioniModificate();
}

void Griglia::dimensioniModificate() {
    if (bloccata())
        m_dimensioniInSospeso = true;
    else
        emit dimensioniCambiate();
}

// --- format

const Griglia::Formato *Griglia::formato(int r, int c) const {
    controlla(r, c);
    const Riga &riga = m_righe[r];
    return riga.formati.empty() ? nullptr : &riga.formati[c];
}

Griglia::Formato &Griglia::formatoScrivibile(int r, int c) {
    controlla(r, c);
    Riga &riga = m_righe[r];
    if (riga.formati.empty())
        riga.formati.resize(m_colonne);
    return riga.formati[c];
}

Griglia::Allineamento Griglia::allineamento(int r, int c) const {
    const Formato *f = formato(r, c);
    if (f && f->allineamento != Formato::SenzaAllineamento)
        return static_cast<Allineamento>(f->allineamento);
    return m_allineamentiColonna[c];
}

void Griglia::setAllineamento(int r, int c, Allineamento a) {
    formatoScrivibile(r, c).allineamento = static_cast<quint8>(a);
    celleCambiate(r, c, r, c, {Qt::TextAlignmentRole});
}

void Griglia::setAllineamentoColonna(int c, Allineamento a) {
    controllaColonna(c);
    m_allineamentiColonna[c] = a;
    for (Riga &riga : m_righe)
        if (!riga.formati.empty())
            riga.formati[c].allineamento = Formato::SenzaAllineamento;
    celleCambiate(0, c, righe() - 1, c, {Qt::TextAlignmentRole});
}

void Griglia::setAllineamentoCorpo(Allineamento a) {
    for (int r = m_righeFisse; r < righe(); ++r)
        for (int c = m_colonneFisse; c < m_colonne; ++c)
            formatoScrivibile(r, c).allineamento = static_cast<quint8>(a);
    celleCambiate(m_righeFisse, m_colonneFisse, righe() - 1, m_colonne - 1,
                  {Qt::TextAlignmentRole});
}

QColor Griglia::sfondo(int r, int c) const {
    const Formato *f = formato(r, c);
    return f && (f->bandiere & Formato::HaSfondo) ? QColor::fromRgba(f->sfondo) : QColor();
}

void Griglia::setSfondo(int r, int c, const QColor &colore) {
    Formato &f = formatoScrivibile(r, c);
    f.sfondo = colore.isValid() ? colore.rgba() : 0;
    f.bandiere =
        colore.isValid() ? f.bandiere | Formato::HaSfondo : f.bandiere & ~Formato::HaSfondo;
    celleCambiate(r, c, r, c, {Qt::BackgroundRole});
}

QColor Griglia::colore(int r, int c) const {
    const Formato *f = formato(r, c);
    return f && (f->bandiere & Formato::HaColore) ? QColor::fromRgba(f->colore) : QColor();
}

void Griglia::setColore(int r, int c, const QColor &colore) {
    Formato &f = formatoScrivibile(r, c);
    f.colore = colore.isValid() ? colore.rgba() : 0;
    f.bandiere =
        colore.isValid() ? f.bandiere | Formato::HaColore : f.bandiere & ~Formato::HaColore;
    celleCambiate(r, c, r, c, {Qt::ForegroundRole});
}

bool Griglia::grassetto(int r, int c) const {
    const Formato *f = formato(r, c);
    return f && (f->bandiere & Formato::Grassetto);
}

void Griglia::setGrassetto(int r, int c, bool si) {
    Formato &f = formatoScrivibile(r, c);
    f.bandiere = si ? f.bandiere | Formato::Grassetto : f.bandiere & ~Formato::Grassetto;
    celleCambiate(r, c, r, c, {Qt::FontRole});
}

qreal Griglia::dimensioneCarattere(int r, int c) const {
    const Formato *f = formato(r, c);
    return f ? f->dimensione : 0;
}

void Griglia::setDimensioneCarattere(int r, int c, qreal punti) {
    formatoScrivibile(r, c).dimensione = punti > 0 ? float(punti) : 0;
    celleCambiate(r, c, r, c, {Qt::FontRole});
}

QString Griglia::nomeCarattere(int r, int c) const {
    const Formato *f = formato(r, c);
    return f && f->carattere > 0 ? m_nomiCaratteri.at(f->carattere - 1) : QString();
}

quint16 Griglia::voceTabella(QStringList &tabella, const QString &testo) {
    // A screen names one or two fonts and a few explanations: a short table beats a QString per
    // cell.
    if (testo.isEmpty())
        return 0;
    qsizetype i = tabella.indexOf(testo);
    if (i < 0) {
        if (tabella.size() >= 0xFFFF)
            throw ErroreEsecuzione(u"Troppi testi diversi nei formati della griglia."_s);
        i = tabella.size();
        tabella.append(testo);
    }
    return quint16(i + 1);
}

void Griglia::setNomeCarattere(int r, int c, const QString &nome) {
    Formato &f = formatoScrivibile(r, c);
    f.carattere = voceTabella(m_nomiCaratteri, nome);
    celleCambiate(r, c, r, c, {Qt::FontRole});
}

QString Griglia::suggerimento(int r, int c) const {
    const Formato *f = formato(r, c);
    return f && f->suggerimento > 0 ? m_suggerimenti.at(f->suggerimento - 1) : QString();
}

void Griglia::setSuggerimento(int r, int c, const QString &testo) {
    // Checked before the format grows: a cell without a tool tip needs none.
    controlla(r, c);
    if (testo.isEmpty() && !formato(r, c))
        return;
    const quint16 voce = voceTabella(m_suggerimenti, testo);
    formatoScrivibile(r, c).suggerimento = voce;
    celleCambiate(r, c, r, c, {Qt::ToolTipRole});
}

void Griglia::celleCambiate(int r1, int c1, int r2, int c2, const QList<int> &ruoli) {
    if (bloccata() || r1 > r2 || c1 > c2)
        return;
    emit dataChanged(index(r1, c1), index(r2, c2), ruoli);
    if (r1 == 0 && m_righeFisse == 1)
        emit headerDataChanged(Qt::Horizontal, c1, c2);
}

// --- model

int Griglia::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : righe();
}

int Griglia::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : m_colonne;
}

QVariant Griglia::data(const QModelIndex &index, int role) const {
    // A view may ask while a block rewrites the grid: answer, never throw.
    const int r = index.row();
    const int c = index.column();
    if (!index.isValid() || r >= righe() || c >= m_colonne)
        return {};
    const Riga &riga = m_righe[r];
    const Formato *f = riga.formati.empty() ? nullptr : &riga.formati[c];
    switch (role) {
    case Qt::DisplayRole:
        return riga.celle[c];
    case Qt::BackgroundRole:
        if (f && (f->bandiere & Formato::HaSfondo))
            return QBrush(QColor::fromRgba(f->sfondo));
        if (eFissa(r, c))
            return QBrush(coloreFisse);
        return {};
    case Qt::ForegroundRole:
        if (f && (f->bandiere & Formato::HaColore))
            return QBrush(QColor::fromRgba(f->colore));
        return {};
    case Qt::FontRole: {
        if (!f ||
            ((f->bandiere & Formato::Grassetto) == 0 && f->dimensione <= 0 && f->carattere == 0))
            return {};
        QFont font;
        if (f->carattere > 0)
            font.setFamilies({m_nomiCaratteri.at(f->carattere - 1)});
        if (f->dimensione > 0)
            font.setPointSizeF(f->dimensione);
        font.setBold(f->bandiere & Formato::Grassetto);
        return font;
    }
    case Qt::ToolTipRole:
        if (f && f->suggerimento > 0)
            return m_suggerimenti.at(f->suggerimento - 1);
        return {};
    case Qt::TextAlignmentRole: {
        const Allineamento a = f && f->allineamento != Formato::SenzaAllineamento
                                   ? static_cast<Allineamento>(f->allineamento)
                                   : m_allineamentiColonna[c];
        const bool numero = a == Allineamento::Generale && eNumero(riga.celle[c]);
        return int(allineamentoQt(a, numero));
    }
    default:
        return {};
    }
}

QVariant Griglia::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && m_righeFisse == 1 && righe() > 0)
        return data(index(0, section), role);
    return {};
}

Qt::ItemFlags Griglia::flags(const QModelIndex &index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}
