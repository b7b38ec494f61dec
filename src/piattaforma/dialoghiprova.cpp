#include "piattaforma/dialoghiprova.h"

void DialoghiProva::informazione(const QString &titolo, const QString &testo) {
    boxes.append({Tipo::Informazione, titolo, testo});
}

void DialoghiProva::avviso(const QString &titolo, const QString &testo) {
    boxes.append({Tipo::Avviso, titolo, testo});
}

void DialoghiProva::critico(const QString &titolo, const QString &testo) {
    boxes.append({Tipo::Critico, titolo, testo});
}

bool DialoghiProva::domanda(const QString &titolo, const QString &testo) {
    boxes.append({Tipo::Domanda, titolo, testo});
    return risposte.isEmpty() ? false : risposte.dequeue();
}

QString DialoghiProva::dialogoSalvataggio(const QString &titolo, const QString &filtro,
                                          const QString &proposta) {
    ultimoTitoloSalvataggio = titolo;
    ultimoFiltroSalvataggio = filtro;
    ultimaPropostaSalvataggio = proposta;
    return fileDaSalvare.isEmpty() ? QString() : fileDaSalvare.dequeue();
}

bool DialoghiProva::dialogoStampa(QPrinter &stampante) {
    ++dialoghiStampa;
    if (nelDialogoStampa)
        nelDialogoStampa(stampante);
    return risposteStampa.isEmpty() ? true : risposteStampa.dequeue();
}

void DialoghiProva::avvisoStato(const QString &testo) {
    avvisiStato.append(testo);
    Dialoghi::avvisoStato(testo);
}

bool DialoghiProva::apriConDesktop(const QUrl &indirizzo) {
    aperti.append(indirizzo);
    return true;
}

QStringList DialoghiProva::testi() const {
    QStringList t;
    for (const Box &b : boxes)
        t.append(b.testo);
    return t;
}

void DialoghiProva::svuota() {
    boxes.clear();
    aperti.clear();
    avvisiStato.clear();
}
