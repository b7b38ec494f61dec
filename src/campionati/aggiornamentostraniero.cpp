#include "campionati/aggiornamentostraniero.h"

#include "campionati/leghe.h"
#include "core/statoprogramma.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/rete.h"
#include "piattaforma/scaricamentofile.h"

#include <QDateTime>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

AggiornamentoStraniero::AggiornamentoStraniero(StatoProgramma &stato)
    : m_stato(stato) {}

QString AggiornamentoStraniero::link(const TaglioClassifica::Voce &voce) {
    const QString testo =
        ScaricamentoFile::paginaIntera(m_stato.rete(), QString::fromLatin1(voce.paginaLink))
            .trimmed();
    const QUrl indirizzo(testo);
    if (!indirizzo.scheme().isEmpty() && indirizzo.isValid())
        return indirizzo.path(QUrl::FullyEncoded) +
               (indirizzo.hasQuery() ? u"?"_s + indirizzo.query(QUrl::FullyEncoded) : QString());
    return testo;
}

void AggiornamentoStraniero::aggiorna(const TaglioClassifica::Voce &voce, const QString &link) {
    const Leghe::Lega *lega = Leghe::perCodice(QString::fromLatin1(voce.codice));
    if (!lega)
        throw ErroreEsecuzione(
            u"Campionato %1 sconosciuto."_s.arg(QString::fromLatin1(voce.codice)));
    // An empty address (a link page that came whole with nothing in it) fetches nothing: the
    // table comes out empty, as from a page without the marker.
    const QString pagina =
        link.isEmpty() ? QString() : ScaricamentoFile::paginaIntera(m_stato.rete(), link);
    ScaricamentoFile::controllaInterruzione(m_stato.rete());
    const QString lavoro =
        FileDati::percorso(m_stato.PercorsoDati, QString::fromLatin1(voce.fileLavoro));
    FileDati::scriviRighe(lavoro, {pagina});
    const QStringList righe = FileDati::leggiRighe(lavoro);
    const QList<TaglioClassifica::Riga> tabella =
        TaglioClassifica::taglia(righe, lega->righeClassifica);
    TaglioClassifica::scrivi(m_stato.PercorsoDati, *lega, voce, tabella,
                             QDateTime::currentDateTime());
    FileDati::elimina(lavoro);
    m_riepilogo.fatto(TaglioClassifica::nome(voce));
}

QList<const TaglioClassifica::Voce *> AggiornamentoStraniero::inOrdineAlfabetico() {
    QList<const TaglioClassifica::Voce *> voci;
    for (const TaglioClassifica::Voce &v : TaglioClassifica::voci())
        voci.append(&v);
    std::sort(voci.begin(), voci.end(), [](const auto *a, const auto *b) {
        return TaglioClassifica::nome(*a) < TaglioClassifica::nome(*b);
    });
    return voci;
}

void AggiornamentoStraniero::aggiornaTutte(const std::function<void()> &dopoILink,
                                           const std::function<void(const QString &)> &progresso) {
    for (const TaglioClassifica::Voce &v : TaglioClassifica::voci())
        m_riepilogo.prevedi({TaglioClassifica::nome(v)});
    QHash<const TaglioClassifica::Voce *, QString> link;
    for (const TaglioClassifica::Voce *v : inOrdineAlfabetico())
        link.insert(v, this->link(*v));
    if (dopoILink)
        dopoILink();
    for (const TaglioClassifica::Voce &v : TaglioClassifica::voci()) {
        if (progresso)
            progresso(QString::fromLatin1(v.progresso));
        aggiorna(v, link.value(&v));
    }
}
