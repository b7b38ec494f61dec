#include "aggiornamenti/impostazionesito.h"

#include "core/statoprogramma.h"
#include "piattaforma/impostazioni.h"
#include "piattaforma/rete.h"

#include <QRegularExpression>
#include <QScopeGuard>
#include <QSet>
#include <QUrl>

using namespace Qt::StringLiterals;

ImpostazioneSito::Prova ImpostazioneSito::prova(Rete &rete, const QString &radice) {
    const QString prima = rete.radice();
    rete.setRadice(radice);
    const auto ripristina = qScopeGuard([&rete, &prima] { rete.setRadice(prima); });
    Rete::Operazione operazione(rete);
    Prova p;
    p.risponde = rete.verificaConnessione();
    if (p.risponde) {
        const Rete::Pagina indice = rete.scarica(QString::fromUtf16(PaginaIndice));
        if (indice.intera())
            p.pagine = pagineIndice(indice.testo);
    }
    p.annullata = rete.interrotta();
    return p;
}

int ImpostazioneSito::pagineIndice(const QString &html) {
    static const QRegularExpression collegamento(u"<a\\s[^>]*?href\\s*=\\s*[\"']([^\"'#]+)[\"']"_s,
                                                 QRegularExpression::CaseInsensitiveOption);
    QSet<QString> pagine;
    for (auto it = collegamento.globalMatch(html); it.hasNext();)
        pagine.insert(it.next().captured(1).trimmed());
    return int(pagine.size());
}

QString ImpostazioneSito::esito(const Prova &prova, const QString &radice) {
    const QString indice = QString::fromUtf16(PaginaIndice).mid(1);
    if (prova.annullata)
        return u"Prova annullata."_s;
    if (!prova.risponde) {
        const QUrl indirizzo(radice);
        if (indirizzo.isLocalFile())
            return u"Nessun sito nella cartella %1: manca la sua pagina %2."_s.arg(
                indirizzo.toLocalFile(), QString::fromUtf16(Rete::PaginaCartella));
        return u"Il sito %1 non risponde: controllare l'indirizzo e la connessione a Internet."_s
            .arg(radice);
    }
    if (prova.pagine < 0)
        return u"Il sito risponde, ma non ha l'indice delle pagine (%1): forse non è il sito "
               u"degli aggiornamenti di Vespara."_s.arg(indice);
    if (prova.pagine == 0)
        return u"Il sito risponde, ma il suo indice (%1) non elenca nessuna pagina: forse non è "
               u"il sito degli aggiornamenti di Vespara."_s.arg(indice);
    return u"Il sito risponde: il suo indice (%1) elenca %2 %3."_s.arg(indice)
        .arg(prova.pagine)
        .arg(prova.pagine == 1 ? u"pagina"_s : u"pagine"_s);
}

QString ImpostazioneSito::memorizza(StatoProgramma &stato, const QString &indirizzo) {
    const QString radice = indirizzo.trimmed();
    if (!radice.isEmpty())
        if (const QString errore = Rete::erroreRadice(radice); !errore.isEmpty())
            return errore;
    stato.impostazioni().imposta(Impostazioni::RadiceSito, radice);
    // The next download goes to the root that now holds; $VESPARA_SITO still comes first.
    stato.rete().setRadice(Rete::radicePredefinita(stato.impostazioni()));
    return {};
}

QString ImpostazioneSito::memorizzato(const StatoProgramma &stato) {
    return stato.impostazioni().valore(Impostazioni::RadiceSito).toString();
}
