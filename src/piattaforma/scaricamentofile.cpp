#include "piattaforma/scaricamentofile.h"

#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/rete.h"

using namespace Qt::StringLiterals;

QString ScaricamentoFile::paginaIntera(Rete &rete, const QString &percorso) {
    const Rete::Pagina pagina = rete.scarica(percorso);
    if (pagina.esito == Rete::Esito::Annullata || rete.interrotta())
        throw ErroreEsecuzione::interruzione();
    // A page broken off would take the place of a good file: the update stops before it.
    if (!pagina.intera())
        throw ErroreEsecuzione(u"La pagina %1 del sito non è arrivata per intero."_s.arg(percorso));
    return pagina.testo;
}

QString ScaricamentoFile::pagina(Rete &rete, const QString &percorso) {
    return Rete::togliBlank(paginaIntera(rete, percorso));
}

void ScaricamentoFile::controllaInterruzione(const Rete &rete) {
    if (rete.interrotta())
        throw ErroreEsecuzione::interruzione();
}

QString ScaricamentoFile::inFile(Rete &rete, const QString &percorso, const QString &percorsoFile) {
    const QString testo = pagina(rete, percorso);
    controllaInterruzione(rete);
    FileDati::scriviRighe(percorsoFile, Rete::righe(testo));
    return testo;
}
