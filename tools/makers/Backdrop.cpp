// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "makers/Backdrop.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace makers {

namespace {

// The hall in its own units, of which about 40 make a metre: x to the right, y up, z into the picture.
constexpr double HalfWidth = 184;
constexpr double SpringHeight = 168; // where the vault begins
constexpr double Length = 1000;
constexpr double Bay = 176; // from column to column
constexpr double NicheHalfWidth = 46;
constexpr double NicheSpring = 84;
constexpr double NicheDepth = 40;
constexpr double WindowHalfWidth = 62;
constexpr double WindowFoot = 96;
constexpr double WindowSpring = 214;
constexpr double ColumnRadius = 19;
constexpr double ColumnCentre = HalfWidth - 8;
constexpr double TorchHeight = 104;
constexpr double TorchReach = HalfWidth - 42;

constexpr Vec3 Eye = {-52, 118, -40};
constexpr Vec3 Target = {64, 88, 500};
constexpr double Focal = 0.62; // times the picture's width

double dot(const Vec3& a, const Vec3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

double length(const Vec3& a) {
    return std::sqrt(dot(a, a));
}

// Exact enough here, and much faster than std::hypot.
double hypotenuse(double a, double b) {
    return std::sqrt(a * a + b * b);
}

Vec3 normalised(const Vec3& a) {
    return a * (1 / length(a));
}

Vec3 cross(const Vec3& a, const Vec3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

// A repeatable random number from 0 to 1 for a cell of a texture.
double hash(int x, int y, int salt) {
    auto value = static_cast<std::uint32_t>(x) * 0x8DA6B343U ^ static_cast<std::uint32_t>(y) * 0xD8163841U ^
                 static_cast<std::uint32_t>(salt) * 0xCB1AB31FU;
    value = (value ^ value >> 15U) * 0x2C1B3C6DU;
    value = (value ^ value >> 12U) * 0x297A2D39U;
    return static_cast<double>((value ^ value >> 15U) & 0xFFFFFFU) / 16777216.0;
}

int cellOf(double value, double size) {
    return static_cast<int>(std::floor(value / size));
}

// Distances. Each is the distance from a point in the open to one kind of solid.

double boxDistance(double x, double y, double halfX, double halfY) {
    const double dx = std::abs(x) - halfX;
    const double dy = std::abs(y) - halfY;
    return hypotenuse(std::max(dx, 0.0), std::max(dy, 0.0)) + std::min(std::max(dx, dy), 0.0);
}

// How far a point is outside an upright opening with a round arch.
double archDistance(double across, double y, double halfWidth, double spring) {
    return (y < spring ? std::abs(across) : hypotenuse(across, y - spring)) - halfWidth;
}

enum class Surface { Floor, Wall, Niche, Column, Ledge, Vault, Rib, EndWall, Sky, Iron, Step };

struct Nearest {
    double distance = 1e9;
    Surface surface = Surface::Floor;

    void meet(double other, Surface kind) {
        if (other < distance) {
            distance = other;
            surface = kind;
        }
    }
};

Nearest nearestSolid(const Vec3& point) {
    const double x = std::abs(point.x);
    const double y = point.y;
    // Both sides and all bays are alike; a column stands in the middle of a bay, a niche at its border.
    const double z = point.z - Bay * std::round(point.z / Bay);
    const double fromNiche = Bay / 2 - std::abs(z);
    Nearest nearest;

    nearest.meet(y, Surface::Floor);
    const double wall = HalfWidth - x;
    if (y < SpringHeight) {
        const double niche =
            std::max(archDistance(fromNiche, y, NicheHalfWidth, NicheSpring), x - HalfWidth - NicheDepth);
        nearest.meet(std::max(wall, -niche), wall < 0.5 ? Surface::Niche : Surface::Wall);
    } else {
        nearest.meet(HalfWidth - hypotenuse(x, y - SpringHeight), Surface::Vault);
    }

    const double fromColumn = hypotenuse(x - ColumnCentre, z);
    nearest.meet(std::max(fromColumn - ColumnRadius, y - SpringHeight), Surface::Column);
    const double block = boxDistance(x - ColumnCentre, z, ColumnRadius + 6, ColumnRadius + 6);
    nearest.meet(std::max(block, y - 22), Surface::Ledge);
    nearest.meet(std::max(block, std::abs(y - SpringHeight + 12) - 12), Surface::Ledge);
    nearest.meet(boxDistance(HalfWidth - x, y - SpringHeight + 3, 7, 5), Surface::Ledge);
    if (y >= SpringHeight - 1) {
        nearest.meet(
            boxDistance(hypotenuse(x, y - SpringHeight) - HalfWidth, z, 16, ColumnRadius - 3), Surface::Rib);
    }

    const double cup = hypotenuse(x - TorchReach, z) - 2 - std::max(0.0, y - TorchHeight + 16) * 0.25;
    nearest.meet(std::max(cup, std::abs(y - TorchHeight + 10) - 10), Surface::Iron);
    const double arm = hypotenuse(y - TorchHeight + 18, z) - 2;
    nearest.meet(std::max(arm, std::max(TorchReach - x, x - HalfWidth)), Surface::Iron);

    const double window = std::max(archDistance(point.x, y, WindowHalfWidth, WindowSpring), WindowFoot - y);
    const double end = Length - point.z;
    nearest.meet(std::max(end, -window), Surface::EndWall);
    nearest.meet(Length + 24 - point.z, Surface::Sky);
    if (end > 0 || window < 0) {
        const double mullion =
            std::min(std::abs(point.x), std::abs(std::abs(point.x) - WindowHalfWidth * 2 / 3));
        const double tracery = std::min(mullion, std::abs(hypotenuse(point.x, y - WindowSpring) - 34));
        nearest.meet(std::max(std::max(tracery - 4, std::abs(end + 14) - 4), window), Surface::EndWall);
    }
    nearest.meet(std::max(Length - 96 - point.z, y - 10), Surface::Step);
    nearest.meet(std::max(Length - 72 - point.z, y - 20), Surface::Step);
    nearest.meet(std::max(Length - 48 - point.z, y - 30), Surface::Step);
    return nearest;
}

Vec3 normalAt(const Vec3& point) {
    constexpr double Step = 0.05;
    const auto distance = [&](double x, double y, double z) {
        return nearestSolid(point + Vec3{x, y, z}).distance;
    };
    return normalised(
        {distance(Step, 0, 0) - distance(-Step, 0, 0), distance(0, Step, 0) - distance(0, -Step, 0),
         distance(0, 0, Step) - distance(0, 0, -Step)});
}

// Walks from a point along a direction; the distance to what it meets, at most `limit`.
double march(const Vec3& from, const Vec3& direction, double limit, int steps) {
    double gone = 0;
    for (int step = 0; step < steps && gone < limit; ++step) {
        const double free = nearestSolid(from + direction * gone).distance;
        if (free < 0.05) {
            break;
        }
        gone += free * 0.9;
    }
    return std::min(gone, limit);
}

// Textures. u and v count texels, v downwards.

struct Masonry {
    double width = 0;
    double height = 0;
    Vec3 colour;
    double contrast = 0;
    int salt = 0;
};

Vec3 masonryColour(const Masonry& masonry, double u, double v) {
    const int course = cellOf(v, masonry.height);
    const double shifted = u + (course % 2 != 0 ? masonry.width / 2 : 0);
    const int stone = cellOf(shifted, masonry.width);
    const double inX = shifted - stone * masonry.width;
    const double inY = v - course * masonry.height;
    const int texelX = static_cast<int>(std::floor(shifted));
    const int texelY = static_cast<int>(std::floor(v));
    const double grain = hash(texelX, texelY, masonry.salt) - 0.5;
    const double blotch = hash(texelX / 5, texelY / 4, masonry.salt + 1) - 0.5;
    double tone = 1 + masonry.contrast * (hash(stone, course, masonry.salt + 2) - 0.5);
    tone *= 1 + 0.28 * grain + 0.16 * blotch;
    if (inX < 1 || inY < 1) {
        tone *= 0.38;
    } else if (inX < 2 || inY < 2) {
        tone *= 1.22;
    } else if (inX > masonry.width - 2 || inY > masonry.height - 2) {
        tone *= 0.72;
    }
    // Some stones are redder, some greener.
    const double hue = hash(stone, course, masonry.salt + 3) - 0.5;
    return masonry.colour * Vec3{tone * (1 + 0.12 * hue), tone, tone * (1 - 0.16 * hue)};
}

constexpr Masonry Bricks = {28, 14, {0.50, 0.38, 0.27}, 0.40, 10};
constexpr Masonry Ashlar = {44, 22, {0.53, 0.46, 0.36}, 0.28, 20};
constexpr Masonry Flags = {48, 48, {0.40, 0.36, 0.32}, 0.44, 30};
constexpr Masonry Cells = {22, 22, {0.38, 0.31, 0.25}, 0.30, 40};
constexpr Masonry Drums = {64, 28, {0.58, 0.52, 0.43}, 0.18, 50};

Vec3 floorColour(const Vec3& point) {
    const double across = std::abs(point.x);
    if (across > 44) {
        return masonryColour(Flags, point.x, point.z);
    }
    const double thread = 1 + 0.3 * (hash(cellOf(point.x, 2), cellOf(point.z, 2), 60) - 0.5);
    const bool border = across > 34 && across < 40;
    const bool lozenge = across + std::abs(point.z - 48 * std::round(point.z / 48)) < 14;
    return (border || lozenge ? Vec3{0.62, 0.44, 0.14} : Vec3{0.42, 0.09, 0.07}) * thread;
}

Vec3 surfaceColour(Surface surface, const Vec3& point, const Vec3& normal) {
    const double high = 1000 - point.y;
    const bool facesSide = std::abs(normal.x) > 0.7;
    switch (surface) {
    case Surface::Floor:
        return floorColour(point);
    case Surface::Wall:
        return masonryColour(Bricks, facesSide ? point.z : point.x, high);
    case Surface::Niche:
        return masonryColour(Cells, facesSide ? point.z : point.x, std::abs(normal.y) > 0.7 ? point.z : high);
    case Surface::Column: {
        const double z = point.z - Bay * std::round(point.z / Bay);
        const double turn = std::atan2(z, ColumnCentre - std::abs(point.x));
        return masonryColour(Drums, turn * ColumnRadius + 32, high);
    }
    case Surface::Ledge:
    case Surface::Step:
        return masonryColour(
            Ashlar, facesSide ? point.z : point.x, std::abs(normal.y) > 0.7 ? point.z : high);
    case Surface::Vault: {
        const double turn = std::atan2(point.x, point.y - SpringHeight);
        return masonryColour(Cells, point.z, turn * HalfWidth + 11);
    }
    case Surface::Rib: {
        const double turn = std::atan2(point.x, point.y - SpringHeight);
        return masonryColour(Drums, point.z * 0.5 + 16, turn * HalfWidth + 14);
    }
    case Surface::EndWall:
        return masonryColour(Ashlar, point.x, high);
    case Surface::Iron:
        return Vec3{0.16, 0.15, 0.15};
    case Surface::Sky:
        break;
    }
    return {};
}

Vec3 skyColour(const Vec3& point) {
    const double high =
        std::clamp((point.y - WindowFoot) / (WindowSpring + WindowHalfWidth - WindowFoot), 0.0, 1.0);
    const double cloud = 0.5 + 0.5 * std::sin(point.x * 0.06 + std::sin(point.y * 0.13) * 2.2);
    const Vec3 base = Vec3{0.42, 0.30, 0.62} * (1 - high) + Vec3{0.10, 0.12, 0.36} * high;
    return base * (0.8 + 0.35 * cloud);
}

struct Light {
    Vec3 place;
    Vec3 colour;
    double reach = 0;
};

std::vector<Light> torchesAndWindow() {
    std::vector<Light> lights;
    for (int bay = -1; bay * Bay < Length; ++bay) {
        for (const double side : {-1.0, 1.0}) {
            const double flicker = 0.85 + 0.3 * hash(bay, static_cast<int>(side), 70);
            lights.push_back(
                {{side * (TorchReach - 6), TorchHeight + 14, bay * Bay},
                 Vec3{1.0, 0.60, 0.26} * (flicker * 1.25),
                 78});
        }
    }
    lights.push_back({{0, 190, Length - 30}, Vec3{0.42, 0.36, 0.80} * 1.3, 150});
    return lights;
}

Vec3 lightAt(const Vec3& point, const Vec3& normal, const std::vector<Light>& lights) {
    Vec3 sum = {0.035, 0.030, 0.034};
    for (const Light& light : lights) {
        const Vec3 way = light.place - point;
        const double distance = length(way);
        const double strength = 1 / (1 + distance * distance / (light.reach * light.reach));
        const Vec3 direction = way * (1 / distance);
        const double facing = dot(direction, normal);
        if (facing <= 0 || strength < 0.015) {
            continue;
        }
        const Vec3 start = point + normal * 0.6;
        const double seen = march(start, direction, distance - 8, 40);
        const double shade = seen < distance - 8.5 ? 0.06 : 1;
        sum = sum + light.colour * (facing * strength * shade);
    }
    return sum;
}

struct Camera {
    Vec3 forward = normalised(Target - Eye);
    Vec3 right = normalised(cross({0, 1, 0}, forward));
    Vec3 up = cross(forward, right);
};

// A flame: bright inside, ragged and red at its edge. x goes from -1 to 1, y from 0 at its foot to 1.
Vec3 flameColour(double x, double y, int salt) {
    const double sway = 0.22 * std::sin(y * 5 + salt) * y;
    const double width = 0.95 * std::pow(std::max(0.0, 1 - y), 0.7) * std::min(1.0, 0.45 + y * 3);
    const double ragged = 0.18 * (hash(static_cast<int>(x * 6 + 9), static_cast<int>(y * 9), salt) - 0.5);
    const double inside = width - std::abs(x - sway) + ragged;
    if (inside <= 0) {
        return {};
    }
    const double heat = std::min(1.0, inside * 1.7) * (1.1 - 0.5 * y);
    return {std::min(1.1, 0.75 + heat), std::min(1.0, 0.12 + heat * 1.05), std::max(0.0, heat * 1.3 - 0.55)};
}

void drawFlames(LightPicture& picture, const Camera& camera, const std::vector<Light>& lights) {
    const double focal = Focal * picture.width();
    int salt = 0;
    for (const Light& light : lights) {
        ++salt;
        const Vec3 foot = Vec3{light.place.x < 0 ? -TorchReach : TorchReach, TorchHeight - 2, light.place.z};
        const Vec3 way = foot - Eye;
        const double depth = dot(way, camera.forward);
        if (light.reach > 100 || depth < 20) {
            continue;
        }
        const double middleX = picture.width() / 2.0 + dot(way, camera.right) / depth * focal;
        const double footY = picture.height() / 2.0 - dot(way, camera.up) / depth * focal;
        const double size = 30 / depth * focal;
        const Vec3 flame = foot + Vec3{0, 12, 0};
        const Vec3 line = flame - Eye;
        const bool visible = march(Eye, normalised(line), length(line) - 6, 160) >= length(line) - 6.5;
        const double glow = size * 2.6;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const double dx = x + 0.5 - middleX;
                const double up = footY - (y + 0.5);
                const double far = hypotenuse(dx, up - size * 0.45) / glow;
                if (visible && far < 1) {
                    const double halo = (1 - far) * (1 - far) * 0.42;
                    picture.at(x, y) = picture.at(x, y) + Vec3{1.0, 0.55, 0.18} * halo;
                }
                if (visible && up >= 0 && up < size && std::abs(dx) < size * 0.4) {
                    const Vec3 colour = flameColour(dx / (size * 0.34), up / size, salt);
                    if (colour.x > 0) {
                        picture.at(x, y) = colour;
                    }
                }
            }
        }
    }
}

} // namespace

void DrawBackdrop(LightPicture& picture) {
    const Camera camera;
    const std::vector<Light> lights = torchesAndWindow();
    const double focal = Focal * picture.width();
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const Vec3 direction = normalised(
                camera.forward * focal + camera.right * (x + 0.5 - picture.width() / 2.0) +
                camera.up * (picture.height() / 2.0 - y - 0.5));
            const double distance = march(Eye, direction, 2000, 220);
            const Vec3 point = Eye + direction * distance;
            const Surface surface = nearestSolid(point).surface;
            if (surface == Surface::Sky) {
                picture.at(x, y) = skyColour(point);
                continue;
            }
            const Vec3 normal = normalAt(point);
            picture.at(x, y) = surfaceColour(surface, point, normal) * lightAt(point, normal, lights);
        }
    }
    drawFlames(picture, camera, lights);
}

} // namespace makers
