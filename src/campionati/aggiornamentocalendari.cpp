#include "campionati/aggiornamentocalendari.h"

#include "campionati/aggiornamentostraniero.h"
#include "campionati/filecampionati.h"
#include "core/statoprogramma.h"
#include "piattaforma/filedati.h"

using namespace Qt::StringLiterals;

namespace {

// The page without the blanks that pad it (only blanks: line ends stay).
QString senzaBlank(const QString &testo) {
    qsizetype inizio = 0, fine = testo.size();
    while (inizio < fine && testo.at(inizio) == u' ')
        ++inizio;
    while (fine > inizio && testo.at(fine - 1) == u' ')
        --fine;
    return testo.mid(inizio, fine - inizio);
}

} // namespace

AggiornamentoCalendari::AggiornamentoCalendari(StatoProgramma &stato)
    : m_stato(stato) {}

QString AggiornamentoCalendari::pagina(const Leghe::Lega &lega) {
    return u"/vespara/"_s + QString::fromLatin1(lega.calendario) + u".html"_s;
}

QString AggiornamentoCalendari::scarica(const Leghe::Lega &lega) {
    return senzaBlank(AggiornamentoStraniero::scarica(m_stato, pagina(lega)));
}

bool AggiornamentoCalendari::secondaDivisioneDisponibile() {
    bool tutte = true;
    for (const char *codice : {"C2A", "C2B", "C2C"})
        tutte = !scarica(*Leghe::perCodice(QString::fromLatin1(codice))).isEmpty() && tutte;
    return tutte;
}

void AggiornamentoCalendari::aggiorna(const std::function<void(int)> &avanzamento) {
    int fatte = 0;
    for (const Leghe::Lega &lega : Leghe::italiane()) {
        QStringList righe = scarica(lega).split(u'\n');
        for (QString &riga : righe)
            if (riga.endsWith(u'\r'))
                riga.chop(1);
        if (!righe.isEmpty() && righe.last().isEmpty())
            righe.removeLast();
        FileDati::scriviRighe(m_stato.percorsoFile(Leghe::fileCalendarioTesto(lega)), righe);
        FileCampionati::ricreaCalendario(m_stato.PercorsoDati, lega);
        if (avanzamento)
            avanzamento(++fatte);
    }
}
