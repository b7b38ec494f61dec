#include "analisi/bancocolonne9.h"

#include "core/colonna.h"
#include "core/glossario.h"
#include "core/numeritesto.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int RigheUniverso = Colonne9::Numero + 1;
constexpr std::array<int, BancoColonne9::Colonne> Larghezze{750, 1500, 600, 600};
constexpr auto Sinistra = Griglia::Allineamento::SinistraCentro;

QString testoPosizione(int i, BancoColonne9::FormaPosizione forma) {
    return forma == BancoColonne9::FormaPosizione::Parentesi ? QString::number(i) + u')'
                                                             : QString::number(i);
}

} // namespace

const QStringList &BancoColonne9::intestazioni() {
    static const QStringList testi{u"Pos."_s, u"Colonna del 9"_s, u"Freq."_s, u"Rit."_s};
    return testi;
}

const QStringList &BancoColonne9::suggerimentiIntestazioni() {
    static const QStringList testi = [] {
        const QString ordina = u"\nUn clic sull'intestazione, o un doppio clic su una cella della "
                               "colonna, ordina le righe: decrescente e crescente alternati."_s;
        return QStringList{
            Glossario::sigla(u"Pos."_s, u"Posizione: il numero della riga nell'elenco, "
                                        "riscritto a ogni filtro; l'ordinamento non lo cambia."_s) +
                ordina,
            u"Colonna del 9: i segni delle prime nove partite. Questa colonna non si ordina."_s,
            Glossario::sigla(u"Freq."_s, Glossario::frequenza(u"la colonna del 9"_s,
                                                              u"concorsi dell'archivio"_s)) +
                ordina,
            Glossario::sigla(u"Rit."_s, Glossario::ritardo(u"della colonna del 9"_s,
                                                           u"\"-\" se non è mai uscita"_s)) +
                ordina,
        };
    }();
    return testi;
}

BancoColonne9::BancoColonne9(Griglia &griglia)
    : m_griglia(griglia) {
    liberaSegni();
}

int BancoColonne9::totale() const {
    return m_griglia.righe() - 1;
}

void BancoColonne9::prepara() {
    const auto blocco = m_griglia.inBlocco();
    m_griglia.setColonne(Colonne);
    m_griglia.setRigheFisse(1);
    m_griglia.setRighe(RigheUniverso);
    m_ordinamento.azzera();
    m_griglia.pulisci();
    for (int c = 0; c < Colonne; ++c)
        m_griglia.setLarghezzaColonna(c, Larghezze[c]);
    scriviIntestazioni();
    // The universe is not there until the first "Inizializzazione".
    m_griglia.setRighe(1);
}

void BancoColonne9::carica(const QList<Colonne9::Statistica> &statistiche) {
    {
        const auto blocco = m_griglia.inBlocco();
        m_griglia.setRighe(1);
        m_griglia.setRighe(int(statistiche.size()) + 1);
        m_griglia.setAllineamentoColonna(1, Sinistra);
        for (int i = 1; i <= statistiche.size(); ++i) {
            const Colonne9::Statistica &s = statistiche.at(i - 1);
            m_griglia.setTesto(i, 0, testoPosizione(i, FormaPosizione::Parentesi));
            for (int c = 0; c < 3; ++c)
                m_griglia.setTesto(i, c + 1, s[c]);
        }
    }
    m_ordinamento.setOrdine(std::nullopt);
    liberaSegni();
    m_catena.clear();
}

void BancoColonne9::caricaSistema(const QList<Colonne9::Statistica> &sistema) {
    carica(sistema);
    QList<int> indici;
    indici.reserve(sistema.size());
    for (const Colonne9::Statistica &s : sistema)
        indici.append(Colonne9::indice(s[0]));
    m_catena.append(
        PassoFiltro::insieme(indici, u"Sistema integrale di %1 colonne"_s.arg(sistema.size())));
}

void BancoColonne9::scriviIntestazioni() {
    for (int c = 0; c < Colonne; ++c) {
        m_griglia.setTesto(0, c, intestazioni().at(c));
        m_griglia.setSuggerimento(0, c, suggerimentiIntestazioni().at(c));
    }
}

void BancoColonne9::istantanea() {
    m_istantanea.clear();
    m_istantanea.reserve(totale());
    for (int r = 1; r < m_griglia.righe(); ++r) {
        std::array<QString, Colonne> riga;
        for (int c = 0; c < Colonne; ++c)
            riga[c] = m_griglia.testo(r, c);
        m_istantanea.append(riga);
    }
    m_righeIstantanea = int(m_istantanea.size());
    m_conIstantanea = true;
    m_ordineIstantanea = m_ordinamento.ordine();
    m_catenaIstantanea = m_catena;
}

void BancoColonne9::annulla() {
    const auto blocco = m_griglia.inBlocco();
    m_griglia.setRighe(0);
    m_griglia.setRighe(m_righeIstantanea + 1);
    scriviIntestazioni();
    for (int i = 1; i <= m_righeIstantanea; ++i)
        for (int c = 0; c < Colonne; ++c)
            m_griglia.setTesto(i, c, m_istantanea.at(i - 1)[c]);
    m_ordinamento.setOrdine(m_ordineIstantanea);
    m_catena = m_catenaIstantanea;
}

void BancoColonne9::filtra(const PassoFiltro &passo, FormaPosizione forma) {
    QList<std::array<QString, Colonne>> tenute;
    tenute.reserve(totale());
    for (int r = 1; r < m_griglia.righe(); ++r) {
        const QString c = m_griglia.testo(r, 1);
        const QString freq = m_griglia.testo(r, 2);
        const QString rit = m_griglia.testo(r, 3);
        if (passo.resta({c, freq, rit}))
            tenute.append({QString(), c, freq, rit});
    }
    riscrivi(tenute, forma, true);
    m_catena.append(passo);
}

void BancoColonne9::riscrivi(const QList<std::array<QString, Colonne>> &righe, FormaPosizione forma,
                             bool conPosizione) {
    const auto blocco = m_griglia.inBlocco();
    m_griglia.setRighe(1);
    m_griglia.setRighe(int(righe.size()) + 1);
    m_griglia.setAllineamentoCorpo(Sinistra);
    for (int i = 1; i <= righe.size(); ++i) {
        const auto &riga = righe.at(i - 1);
        m_griglia.setTesto(i, 0, conPosizione ? testoPosizione(i, forma) : riga[0]);
        for (int c = 1; c < Colonne; ++c)
            m_griglia.setTesto(i, c, riga[c]);
    }
    if (conPosizione)
        posizioniRiscritte();
}

void BancoColonne9::numera(FormaPosizione forma) {
    const auto blocco = m_griglia.inBlocco();
    for (int i = 1; i < m_griglia.righe(); ++i)
        m_griglia.setTesto(i, 0, testoPosizione(i, forma));
    posizioniRiscritte();
}

void BancoColonne9::posizioniRiscritte() {
    // New numbers run from 1 in the present order: a sort by "Pos." no longer holds.
    if (ordine() && ordine()->colonna == 0)
        m_ordinamento.setOrdine(std::nullopt);
}

BancoColonne9::Messaggio BancoColonne9::controllare() {
    return {Dialoghi::Tipo::Avviso, u"Controllare i dati inseriti."_s};
}

int BancoColonne9::valore(const QString &testo) {
    return int(std::clamp<qint64>(NumeriTesto::valore(testo), -1000000000, 1000000000));
}

BancoColonne9::Esito BancoColonne9::formula(const QString &uno, const QString &x,
                                            const QString &due) {
    // The snapshot comes before the check: a refused formula still replaces it.
    istantanea();
    const int v1 = valore(uno), vx = valore(x), v2 = valore(due);
    if (v1 + vx + v2 != 9)
        return Messaggio{Dialoghi::Tipo::Informazione,
                         u"La formula inserita è inesatta. La somma dei segni deve essere 9."_s};
    filtra(PassoFiltro::formula(v1, vx, v2), FormaPosizione::Numero);
    return std::nullopt;
}

BancoColonne9::Esito BancoColonne9::segnoFisso(const QString &posizione, const QString &segno) {
    istantanea();
    const int pos = valore(posizione);
    if (pos < 1 || pos > 9)
        return Messaggio{Dialoghi::Tipo::Informazione,
                         u"Attenzione. Inserire una posizione valida (tra 1 e 9)."_s};
    const QString maiuscolo = segno.toUpper();
    if (segno != u"1"_s && segno != u"2"_s && maiuscolo != u"X"_s)
        return Messaggio{Dialoghi::Tipo::Informazione,
                         u"Attenzione. Inserire un segno valido (1,X,2)."_s};
    QString &casella = m_segniFissi[pos - 1];
    if (casella == segno)
        return Messaggio{Dialoghi::Tipo::Informazione,
                         u"Il segno introdotto è già stato utilizzato."_s};
    if (casella != QLatin1StringView(Libero))
        return Messaggio{Dialoghi::Tipo::Informazione,
                         u"La posizione "_s + posizione + u" è già stata utilizzata."_s};
    casella = segno;
    filtra(PassoFiltro::segnoFisso(pos, maiuscolo), FormaPosizione::Parentesi);
    return std::nullopt;
}

BancoColonne9::Esito BancoColonne9::conteggio(const QString &segno, const QString &presenze) {
    if (segno == QLatin1StringView(Libero) && presenze == QLatin1StringView(Libero))
        return controllare();
    istantanea();
    filtra(PassoFiltro::conteggio(segno, valore(presenze)), FormaPosizione::Numero);
    return std::nullopt;
}

void BancoColonne9::segniDiversi(int terzina) {
    istantanea();
    filtra(PassoFiltro::segniDiversi(terzina), FormaPosizione::Numero);
}

void BancoColonne9::eliminaSegno(const QString &segno) {
    istantanea();
    filtra(PassoFiltro::eliminaSegno(segno), FormaPosizione::Numero);
}

BancoColonne9::Esito BancoColonne9::eliminaInCasella(const QString &segno,
                                                     const QString &segnoCmbSegno,
                                                     const QString &casella) {
    // The check pairs this sign with the one of "Elimina colonne con il segno", as it always
    // has; a box left at "?" has no position and is refused the same way.
    if (segno == QLatin1StringView(Libero) && segnoCmbSegno == QLatin1StringView(Libero))
        return controllare();
    const int pos = valore(casella);
    if (pos < 1)
        return controllare();
    istantanea();
    filtra(PassoFiltro::eliminaInCasella(segno, pos), FormaPosizione::Numero);
    return std::nullopt;
}

BancoColonne9::Esito BancoColonne9::eliminaFrequenza(const QString &cifra) {
    if (cifra.isEmpty())
        return controllare();
    istantanea();
    filtra(PassoFiltro::eliminaFrequenza(cifra), FormaPosizione::Numero);
    return std::nullopt;
}

void BancoColonne9::eliminaMaiUscite() {
    istantanea();
    filtra(PassoFiltro::eliminaMaiUscite(), FormaPosizione::Numero);
}

void BancoColonne9::terzineOmogenee() {
    istantanea();
    filtra(PassoFiltro::terzineOmogenee(), FormaPosizione::Numero);
}

void BancoColonne9::tieni(const QList<int> &indici, const QString &descrizione) {
    istantanea();
    filtra(PassoFiltro::insieme(indici, descrizione), FormaPosizione::Numero);
}

QList<int> BancoColonne9::indici() const {
    QList<int> v;
    v.reserve(totale());
    for (int r = 1; r < m_griglia.righe(); ++r)
        v.append(Colonne9::indice(m_griglia.testo(r, 1)));
    return v;
}

BancoColonne9::Esito BancoColonne9::consecutivi(const QString &segno, const QString &consecutivi,
                                                const QString &presenze) {
    if (segno.isEmpty()) {
        // No sign chosen: only the renumbering that closes the delete form.
        numera(FormaPosizione::Parentesi);
        return std::nullopt;
    }
    if (consecutivi == QLatin1StringView(Libero) || presenze == QLatin1StringView(Libero))
        return controllare();
    istantanea();
    const int lunghezza = valore(consecutivi);
    if (presenze != u"0"_s) {
        filtra(PassoFiltro::consecutivi(segno, lunghezza, valore(presenze)),
               FormaPosizione::Numero);
        return std::nullopt;
    }
    // The delete form takes the marked rows out where they stand.
    const PassoFiltro passo = PassoFiltro::consecutiviElimina(segno, lunghezza);
    QList<int> marcate;
    for (int r = 1; r < m_griglia.righe(); ++r) {
        const QString c = m_griglia.testo(r, 1);
        const QString freq = m_griglia.testo(r, 2);
        const QString rit = m_griglia.testo(r, 3);
        if (!passo.resta({c, freq, rit}))
            marcate.append(r);
    }
    {
        const auto blocco = m_griglia.inBlocco();
        m_griglia.rimuoviRighe(marcate);
        numera(FormaPosizione::Parentesi);
    }
    m_catena.append(passo);
    return std::nullopt;
}

void BancoColonne9::liberaSegno(int posizione) {
    if (posizione >= 1 && posizione <= 9)
        m_segniFissi[posizione - 1] = QString::fromLatin1(Libero);
}

void BancoColonne9::liberaSegni() {
    m_segniFissi.fill(QString::fromLatin1(Libero));
}

void BancoColonne9::ordina(int colonna) {
    if (colonna == 1 || colonna < 0 || colonna >= m_griglia.colonne())
        return;
    m_ordinamento.ordina(m_griglia, colonna);
}
