// The interaction port answered with Qt dialogs: the desktop host registers
// one for the whole process.
#pragma once

#include <Interaccion.h>
#include <functional>

class QWidget;

namespace vk::ui {

class InteraccionQt : public Interaccion {
public:
    using Avance = std::function<void(int hechos, int total, const QString& texto)>;

    // `padre` is the window dialogs are centred on; it may be null.
    explicit InteraccionQt(QWidget* padre = nullptr) : padre_(padre) {}
    void EstablecePadre(QWidget* padre) { padre_ = padre; }

    // Where progress goes (a view's progress bar, the main window's status
    // line); the previous receiver is returned so a view can put it back.
    Avance EstableceAvance(Avance avance) {
        std::swap(avance_, avance);
        return avance;
    }

    void Mensaje(const QString& texto, Icono icono, const QString& titulo) override;
    bool Pregunta(const QString& texto, const QString& titulo, bool siPorDefecto) override;
    std::optional<QString> PideTexto(const QString& texto, const QString& titulo,
                                     const QString& defecto) override;
    std::optional<int> Busca(const PeticionBusca& peticion) override;
    bool MuestraDialogo(DialogoModelo& dialogo) override;
    std::optional<QString> EligeImpresora(const QString& actual) override;
    void PunteroEspera(bool activo) override;
    void Cede() override;
    void Progreso(int hechos, int total, const QString& texto) override;

private:
    QWidget* padre() const;

    QWidget* padre_ = nullptr;
    Avance avance_;
    int esperas_ = 0; // override cursors pushed, so that they are all popped
};

// Shows a child dialog model with its view, modally; true when accepted.
// Shared by the Qt port and by hosts that wrap it.
bool MuestraVistaDe(DialogoModelo& dialogo, QWidget* padre);

} // namespace vk::ui
