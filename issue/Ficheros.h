// Small file helpers of the issue: the installation's data folder, the
// per-user working folder, and opening a file with the desktop's program.
#pragma once

#include <CarpetaDatos.h>
#include <QString>

namespace vk {

// The per-user working folder "FDOC" + user id inside the data folder;
// the data folder itself when it cannot be created.
QString fnCarpetaFdoc(int idUsuario);

bool fnExisteFichero(const QString& fichero);

// There is nothing to register for the report engine: the step before an
// issue checks that the installation's designs folder can be read.
void msRegistraDisenos();

// Opens the file with the desktop's program. Throws ErrorDispositivo with the legacy
// text of the failure ("File not found", "No application is associated with
// this file type." ...).
bool fnAbreFichero(const QString& fichero);

} // namespace vk
