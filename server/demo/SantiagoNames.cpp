#include "demo/SantiagoNames.h"

#include <array>

namespace orbelan::server {

namespace {

constexpr std::int32_t rgb(std::int32_t red, std::int32_t green, std::int32_t blue)
{
    return red | (green << 8) | (blue << 16);
}

constexpr std::array<std::string_view, 24> kEastWest = {"Alameda",
                                                        "Agustinas",
                                                        "Moneda",
                                                        "Huérfanos",
                                                        "Compañía",
                                                        "Catedral",
                                                        "Santo Domingo",
                                                        "Monjitas",
                                                        "Merced",
                                                        "Rosas",
                                                        "Sama",
                                                        "Erasmo Escala",
                                                        "Romero",
                                                        "Maipú",
                                                        "Copiapó",
                                                        "Tarapacá",
                                                        "Eleuterio Ramírez",
                                                        "Santa Isabel",
                                                        "Diez de Julio",
                                                        "Marín",
                                                        "Coquimbo",
                                                        "Avenida Matta",
                                                        "Ñuble",
                                                        "Carmen Covarrubias"};

constexpr std::array<std::string_view, 24> kNorthSouth = {
    "Matucana",          "Libertad",       "Esperanza",        "Cumming",       "Brasil",
    "Almirante Barroso", "Avenida España", "Manuel Rodríguez", "Amunátegui",    "Teatinos",
    "Morandé",           "Bandera",        "Ahumada",          "Estado",        "San Antonio",
    "Mac Iver",          "San Francisco",  "Santa Rosa",       "Lira",          "Portugal",
    "Vicuña Mackenna",   "Seminario",      "Condell",          "Avenida Italia"};

// ColorBrewer's "Set2": calm qualitative colours that colour-blind readers tell apart.
constexpr std::array<SantiagoNames::LandUse, 6> kLandUses = {{
    {"Residencial", rgb(229, 196, 148)},
    {"Comercial", rgb(252, 141, 98)},
    {"Industrial", rgb(141, 160, 203)},
    {"Equipamiento", rgb(231, 138, 195)},
    {"Educación", rgb(255, 217, 47)},
    {"Área verde", rgb(166, 216, 84)},
}};

constexpr std::array<SantiagoNames::LandUse, 6> kPlaceKinds = {{
    {"Farmacia", rgb(46, 125, 50)},
    {"Colegio", rgb(245, 124, 0)},
    {"Plaza", rgb(27, 94, 32)},
    {"Estación de Metro", rgb(198, 40, 40)},
    {"Iglesia", rgb(94, 53, 177)},
    {"Museo", rgb(21, 101, 192)},
}};

constexpr std::array<std::string_view, 16> kPlaceNames = {
    "San Martín",       "Los Andes",    "Bernardo O'Higgins",
    "Gabriela Mistral", "Pablo Neruda", "Violeta Parra",
    "Santa Lucía",      "La Merced",    "El Carmen",
    "San Francisco",    "Mapocho",      "Yungay",
    "Brasil",           "Bellavista",   "Lastarria",
    "Concha y Toro"};

} // namespace

std::span<const std::string_view> SantiagoNames::eastWestStreets()
{
    return kEastWest;
}

std::span<const std::string_view> SantiagoNames::northSouthStreets()
{
    return kNorthSouth;
}

std::span<const SantiagoNames::LandUse> SantiagoNames::landUses()
{
    return kLandUses;
}

std::span<const SantiagoNames::LandUse> SantiagoNames::placeKinds()
{
    return kPlaceKinds;
}

std::span<const std::string_view> SantiagoNames::placeNames()
{
    return kPlaceNames;
}

} // namespace orbelan::server
