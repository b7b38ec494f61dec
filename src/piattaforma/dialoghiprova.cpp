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

QString DialoghiProva::salvaFile(const QString &titolo, const QString &filtro) {
    ultimoTitoloSalvataggio = titolo;
    ultimoFiltroSalvataggio = filtro;
    return fileDaSalvare.isEmpty() ? QString() : fileDaSalvare.dequeue();
}

bool DialoghiProva::dialogoStampa(QPrinter &) {
    ++dialoghiStampa;
    return risposteStampa.isEmpty() ? true : risposteStampa.dequeue();
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
}
