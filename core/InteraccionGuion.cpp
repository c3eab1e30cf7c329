#include "InteraccionGuion.h"

namespace vk {

void InteraccionGuion::Mensaje(const QString& texto, Icono icono, const QString& titulo) {
    vistos.push_back({MensajeVisto::Tipo::Mensaje, texto, titulo, icono});
    if (eco_) {
        *eco_ << texto << Qt::endl;
    }
}

bool InteraccionGuion::Pregunta(const QString& texto, const QString& titulo, bool siPorDefecto) {
    vistos.push_back({MensajeVisto::Tipo::Pregunta, texto, titulo, Icono::Pregunta});
    bool respuesta = siPorDefecto;
    if (siSiempre_) {
        respuesta = true;
    } else if (!respuestas.empty()) {
        respuesta = respuestas.front();
        respuestas.pop_front();
    }
    if (eco_) {
        *eco_ << texto << QStringLiteral(" -> ")
              << (respuesta ? QStringLiteral("Sí") : QStringLiteral("No")) << Qt::endl;
    }
    return respuesta;
}

std::optional<QString> InteraccionGuion::PideTexto(const QString& texto, const QString& titulo,
                                                   const QString&) {
    vistos.push_back({MensajeVisto::Tipo::PideTexto, texto, titulo, Icono::Pregunta});
    if (textos.empty()) {
        return std::nullopt;
    }
    const std::optional<QString> r = textos.front();
    textos.pop_front();
    return r;
}

std::optional<int> InteraccionGuion::Busca(const PeticionBusca& peticion) {
    vistos.push_back({MensajeVisto::Tipo::Busca, peticion.titulo, peticion.titulo, Icono::Ninguno});
    peticionesBusca.push_back(peticion);
    if (busquedas.empty()) {
        return std::nullopt;
    }
    std::optional<int> r = busquedas.front();
    busquedas.pop_front();
    return r;
}

bool InteraccionGuion::MuestraDialogo(DialogoModelo& dialogo) {
    vistos.push_back(
        {MensajeVisto::Tipo::Dialogo, dialogo.Nombre(), dialogo.Nombre(), Icono::Ninguno});
    if (dialogos.empty()) {
        return false;
    }
    auto paso = std::move(dialogos.front());
    dialogos.pop_front();
    return paso(dialogo);
}

std::optional<QString> InteraccionGuion::EligeImpresora(const QString&) {
    ++preguntasImpresora;
    if (impresoras.isEmpty()) {
        return std::nullopt;
    }
    return impresoras.size() > 1 ? impresoras.takeFirst() : impresoras.first();
}

void InteraccionGuion::Progreso(int hechos, int total, const QString& texto) {
    progresos.emplace_back(hechos, total);
    if (eco_) {
        *eco_ << QStringLiteral("%1 de %2 %3").arg(hechos).arg(total).arg(texto) << Qt::endl;
    }
}

QStringList InteraccionGuion::Textos() const {
    QStringList r;
    for (const MensajeVisto& m : vistos) {
        if (m.tipo == MensajeVisto::Tipo::Mensaje) {
            r << m.texto;
        }
    }
    return r;
}

} // namespace vk
