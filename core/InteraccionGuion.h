// An interaction port that follows a script: queued answers in, recorded
// messages out. Tests drive screens with it; with an echo stream it also
// serves command-line hosts that answer every question the same way.
#pragma once

#include "Interaccion.h"

#include <QStringList>
#include <QTextStream>
#include <deque>
#include <functional>

namespace vk {

struct MensajeVisto {
    enum class Tipo { Mensaje, Pregunta, PideTexto, Busca, Dialogo } tipo;
    QString texto;
    QString titulo;
    Icono icono = Icono::Ninguno;
};

class InteraccionGuion : public Interaccion {
public:
    // Answers, consumed in order. When a queue is empty the question gets its
    // default button, the input box is cancelled and the lookup chooses none.
    std::deque<bool> respuestas;
    std::deque<std::optional<QString>> textos;
    std::deque<std::optional<int>> busquedas;
    std::deque<std::function<bool(DialogoModelo&)>> dialogos;
    // Answers of the printer dialog in turn, the last one staying; none
    // keeps the current printer. A path is a file device.
    QStringList impresoras;
    int preguntasImpresora = 0;

    // Everything shown, in order.
    std::vector<MensajeVisto> vistos;
    std::vector<PeticionBusca> peticionesBusca;
    // Progress reports received.
    std::vector<std::pair<int, int>> progresos;

    // With an echo, messages are also written there (command line hosts).
    void EstableceEco(QTextStream* eco) { eco_ = eco; }
    // A host may answer Yes to every question (batch runs confirmed upfront).
    void ResponderSiSiempre(bool si) { siSiempre_ = si; }

    void Mensaje(const QString& texto, Icono icono, const QString& titulo) override;
    bool Pregunta(const QString& texto, const QString& titulo, bool siPorDefecto) override;
    std::optional<QString> PideTexto(const QString& texto, const QString& titulo,
                                     const QString& defecto) override;
    std::optional<int> Busca(const PeticionBusca& peticion) override;
    bool MuestraDialogo(DialogoModelo& dialogo) override;
    void Progreso(int hechos, int total, const QString& texto) override;
    std::optional<QString> EligeImpresora(const QString& actual) override;

    // Texts of the plain messages, for assertions.
    QStringList Textos() const;

private:
    QTextStream* eco_ = nullptr;
    bool siSiempre_ = false;
};

} // namespace vk
