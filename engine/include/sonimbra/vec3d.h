// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cmath>

namespace sonimbra {

/// Three components in the application's own units: a position, velocity, direction or up vector.
///
/// Arithmetic is carried out in double precision; every component is rounded to T when stored.
template <class T>
class vec3d {
public:
    constexpr vec3d() : X(0), Y(0), Z(0) {}
    constexpr vec3d(T x, T y, T z) : X(x), Y(y), Z(z) {}

    /// Exact comparison without tolerance; false when a component is not a number.
    constexpr bool operator==(const vec3d& other) const {
        return X == other.X && Y == other.Y && Z == other.Z;
    }
    constexpr bool operator!=(const vec3d& other) const { return !(*this == other); }

    constexpr vec3d operator+(const vec3d& other) const {
        return rounded(double(X) + other.X, double(Y) + other.Y, double(Z) + other.Z);
    }
    constexpr vec3d operator-(const vec3d& other) const {
        return rounded(double(X) - other.X, double(Y) - other.Y, double(Z) - other.Z);
    }
    constexpr vec3d operator*(T s) const {
        return rounded(double(X) * s, double(Y) * s, double(Z) * s);
    }
    friend constexpr vec3d operator*(T s, const vec3d& v) { return v * s; }
    /// Dividing by zero gives infinities or NaN; it is not checked.
    constexpr vec3d operator/(T s) const {
        return rounded(double(X) / s, double(Y) / s, double(Z) / s);
    }

    void set(const vec3d& v) { *this = v; }
    void set(T x, T y, T z) { *this = vec3d(x, y, z); }

    /// Square root of X^2 + Y^2 + Z^2.
    double getLength() const { return std::sqrt(getLengthSQ()); }
    constexpr double getLengthSQ() const { return double(X) * X + double(Y) * Y + double(Z) * Z; }

    constexpr T dotProduct(const vec3d& other) const {
        return static_cast<T>(double(X) * other.X + double(Y) * other.Y + double(Z) * other.Z);
    }

    /// Distance between two points, in double precision throughout.
    double getDistanceFrom(const vec3d& other) const {
        const double x = double(X) - other.X;
        const double y = double(Y) - other.Y;
        const double z = double(Z) - other.Z;
        return std::sqrt(x * x + y * y + z * z);
    }

    /// Squared distance: the differences are rounded to T, the sum of their squares once more.
    constexpr T getDistanceFromSQ(const vec3d& other) const {
        return static_cast<T>((*this - other).getLengthSQ());
    }

    constexpr vec3d crossProduct(const vec3d& other) const {
        return rounded(double(Y) * other.Z - double(Z) * other.Y,
                       double(Z) * other.X - double(X) * other.Z,
                       double(X) * other.Y - double(Y) * other.X);
    }

    /// True when this point is nearer to both points than they are to each other (both strictly).
    constexpr bool isBetweenPoints(const vec3d& begin, const vec3d& end) const {
        const T f = (end - begin).getLengthSQAsStored();
        return getDistanceFromSQ(begin) < f && getDistanceFromSQ(end) < f;
    }

    /// Scales this vector to length 1 in place and returns a copy; (0, 0, 0) stays what it is.
    vec3d normalize() {
        const T length = static_cast<T>(getLength());
        if (length == 0) {
            return *this;
        }
        const T inverse = static_cast<T>(1.0 / length);
        *this = *this * inverse;
        return *this;
    }

    /// Normalizes, then multiplies by newLength.
    void setLength(T newLength) {
        normalize();
        *this = *this * newLength;
    }

    void invert() { *this = vec3d(X * T(-1), Y * T(-1), Z * T(-1)); }

    /// other * (1 - d) + this * d: d = 1 gives this vector, d = 0 the other; values outside 0..1
    /// extrapolate.
    constexpr vec3d getInterpolated(const vec3d& other, T d) const {
        const double inverse = 1.0 - d;
        return rounded(other.X * inverse + double(X) * d, other.Y * inverse + double(Y) * d,
                       other.Z * inverse + double(Z) * d);
    }

    T X;
    T Y;
    T Z;

private:
    static constexpr vec3d rounded(double x, double y, double z) {
        return vec3d(static_cast<T>(x), static_cast<T>(y), static_cast<T>(z));
    }
    constexpr T getLengthSQAsStored() const { return static_cast<T>(getLengthSQ()); }
};

using vec3df = vec3d<float>;

} // namespace sonimbra
