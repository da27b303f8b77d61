// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Runtime.InteropServices;

namespace Sonimbra {

/// <summary>
/// Three components in the application's own units: a position, velocity, direction or up vector.
/// Arithmetic is carried out in double precision; every component is rounded to single precision
/// when stored. <c>new Vector3D()</c> is (0, 0, 0).
/// </summary>
[StructLayout(LayoutKind.Sequential)]
public struct Vector3D {
    /// <summary>The first component.</summary>
    public float X;
    /// <summary>The second component.</summary>
    public float Y;
    /// <summary>The third component.</summary>
    public float Z;

    /// <summary>Sets the three components.</summary>
    public Vector3D(float x, float y, float z) {
        X = x;
        Y = y;
        Z = z;
    }

    /// <summary>
    /// Exact comparison without tolerance; false when a component is not a number.
    /// </summary>
    public static bool operator ==(Vector3D a, Vector3D b) {
        return a.X == b.X && a.Y == b.Y && a.Z == b.Z;
    }

    /// <summary>The opposite of ==.</summary>
    public static bool operator !=(Vector3D a, Vector3D b) {
        return !(a == b);
    }

    /// <summary>The sum, component by component.</summary>
    public static Vector3D operator +(Vector3D a, Vector3D b) {
        return Rounded((double)a.X + b.X, (double)a.Y + b.Y, (double)a.Z + b.Z);
    }

    /// <summary>The difference, component by component.</summary>
    public static Vector3D operator -(Vector3D a, Vector3D b) {
        return Rounded((double)a.X - b.X, (double)a.Y - b.Y, (double)a.Z - b.Z);
    }

    /// <summary>Each component times s.</summary>
    public static Vector3D operator *(Vector3D v, float s) {
        return Rounded((double)v.X * s, (double)v.Y * s, (double)v.Z * s);
    }

    /// <summary>Each component times s.</summary>
    public static Vector3D operator *(float s, Vector3D v) {
        return v * s;
    }

    /// <summary>Each component divided by s. Dividing by zero gives infinities or NaN.</summary>
    public static Vector3D operator /(Vector3D v, float s) {
        return Rounded((double)v.X / s, (double)v.Y / s, (double)v.Z / s);
    }

    /// <summary>Copies the components of v.</summary>
    public void Set(Vector3D v) {
        this = v;
    }

    /// <summary>Sets the three components.</summary>
    public void Set(float x, float y, float z) {
        this = new Vector3D(x, y, z);
    }

    /// <summary>The length: the square root of X² + Y² + Z².</summary>
    public double GetLength() {
        return Math.Sqrt(GetLengthSQ());
    }

    /// <summary>The length: the square root of X² + Y² + Z².</summary>
    public double Length {
        get { return GetLength(); }
    }

    /// <summary>The squared length: X² + Y² + Z².</summary>
    public double GetLengthSQ() {
        return (double)X * X + (double)Y * Y + (double)Z * Z;
    }

    /// <summary>The squared length: X² + Y² + Z².</summary>
    public double LengthSQ {
        get { return GetLengthSQ(); }
    }

    /// <summary>The dot product with another vector.</summary>
    public float DotProduct(Vector3D other) {
        return (float)((double)X * other.X + (double)Y * other.Y + (double)Z * other.Z);
    }

    /// <summary>The distance to another point, in double precision throughout.</summary>
    public double GetDistanceFrom(Vector3D other) {
        double x = (double)X - other.X;
        double y = (double)Y - other.Y;
        double z = (double)Z - other.Z;
        return Math.Sqrt(x * x + y * y + z * z);
    }

    /// <summary>
    /// The squared distance to another point: the differences are rounded to single precision, the
    /// sum of their squares once more.
    /// </summary>
    public float GetDistanceFromSQ(Vector3D other) {
        return (float)(this - other).GetLengthSQ();
    }

    /// <summary>The cross product with another vector.</summary>
    public Vector3D CrossProduct(Vector3D other) {
        return Rounded((double)Y * other.Z - (double)Z * other.Y,
                       (double)Z * other.X - (double)X * other.Z,
                       (double)X * other.Y - (double)Y * other.X);
    }

    /// <summary>
    /// True when this point is nearer to both points than they are to each other (both strictly).
    /// </summary>
    public bool IsBetweenPoints(Vector3D begin, Vector3D end) {
        float f = (float)(end - begin).GetLengthSQ();
        return GetDistanceFromSQ(begin) < f && GetDistanceFromSQ(end) < f;
    }

    /// <summary>
    /// Scales this vector to length 1 in place and returns a copy; (0, 0, 0) stays what it is.
    /// </summary>
    public Vector3D Normalize() {
        float length = (float)GetLength();
        if (length != 0) {
            float inverse = (float)(1.0 / length);
            this = this * inverse;
        }
        return this;
    }

    /// <summary>Normalizes this vector, then multiplies it by newLength.</summary>
    public void SetLength(float newLength) {
        Normalize();
        this = this * newLength;
    }

    /// <summary>Multiplies each component by -1.</summary>
    public void Invert() {
        this = this * -1.0f;
    }

    /// <summary>
    /// other × (1 - d) + this × d: d = 1 gives this vector, d = 0 the other; values outside 0..1
    /// extrapolate.
    /// </summary>
    public Vector3D GetInterpolated(Vector3D other, float d) {
        double inverse = 1.0 - d;
        return Rounded(other.X * inverse + (double)X * d, other.Y * inverse + (double)Y * d,
                       other.Z * inverse + (double)Z * d);
    }

    /// <summary>Exact equality as ==; false for anything but a Vector3D.</summary>
    public override bool Equals(object obj) {
        return obj is Vector3D && this == (Vector3D)obj;
    }

    /// <summary>A hash code; equal vectors have equal ones.</summary>
    public override int GetHashCode() {
        // Adding 0 makes 0 of -0, which is equal to it.
        return unchecked(((X + 0.0f).GetHashCode() * 397 ^ (Y + 0.0f).GetHashCode()) * 397 ^
                         (Z + 0.0f).GetHashCode());
    }

    /// <summary>The components as "(X, Y, Z)", each as the current culture writes it.</summary>
    public override string ToString() {
        return "(" + X + ", " + Y + ", " + Z + ")";
    }

    private static Vector3D Rounded(double x, double y, double z) {
        return new Vector3D((float)x, (float)y, (float)z);
    }
}

}
