// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System.Globalization;
using System.Threading;
using NUnit.Framework;
using static NUnit.Framework.Assert;

namespace Sonimbra.Tests {

[TestFixture]
public class Vector3DTests {
    private static Vector3D V(float x, float y, float z) => new Vector3D(x, y, z);

    [Test]
    public void ComparesExactly() {
        Vector3D one = V(1, 2, 3), notANumber = V(float.NaN, 0, 0), same = notANumber;
        IsTrue(one == V(1, 2, 3) && one.Equals((object)V(1, 2, 3)));
        foreach (Vector3D other in new[] { V(1.0000001f, 2, 3), V(1, 2.5f, 3), V(1, 2, -3) }) {
            IsTrue(one != other && !(one == other) && !one.Equals(other), "{0}", other);
        }
        IsFalse(notANumber == same || notANumber.Equals(same));
        IsFalse(one.Equals(null) || one.Equals("(1, 2, 3)"));
        AreEqual(V(0.0f, 0, 0).GetHashCode(), V(-0.0f, 0, 0).GetHashCode());
        AreEqual(V(0, 0, 0), new Vector3D());
    }

    [Test]
    public void CalculatesInDoublePrecisionAndStoresSingle() {
        AreEqual(V(5, 7, 9), V(1, 2, 3) + V(4, 5, 6));
        AreEqual(V(-3, -4, -5), V(1, 2, 3) - V(4, 6, 8));
        AreEqual(V(2, 4, 6), V(1, 2, 3) * 2);
        AreEqual(V(2, 4, 6), 2 * V(1, 2, 3));
        AreEqual(V(1 / 3.0f, 2, -1), V(1, 6, -3) / 3);
        AreEqual("(Infinity, -Infinity, NaN)", (V(1, -1, 0) / 0).ToString());
        // These have more digits than single precision.
        AreEqual(100000020000001.0, V(10000001, 0, 0).GetLengthSQ());
        AreEqual(100000020000001.0, V(0, 0, 10000001).LengthSQ);
        AreEqual(1.0f, V(1e7f, 1, 1e7f).DotProduct(V(1e7f, 1, -1e7f)));
        AreEqual(V(1, 0, 0), V(0, 10000001, 10000000).CrossProduct(V(0, 10000002, 10000001)));
        AreEqual(V(-3, 6, -3), V(1, 2, 3).CrossProduct(V(4, 5, 6)));
        AreEqual(13.0, V(3, 4, 12).GetLength());
        AreEqual(13.0, V(3, -4, 12).Length);
        AreEqual(16777217.0, V(16777216, 0, 0).GetDistanceFrom(V(-1, 0, 0)));
        AreEqual(281474976710656.0f, V(16777216, 0, 0).GetDistanceFromSQ(V(-1, 0, 0)));
    }

    [Test]
    public void NormalizesInPlace() {
        Vector3D v = V(0, 3, 4);
        AreEqual(V(0, 3 * 0.2f, 4 * 0.2f), v.Normalize());
        AreEqual(V(0, 3 * 0.2f, 4 * 0.2f), v);
        AreEqual(0.99999994f, V(41, 0, 0).Normalize().X); // the reciprocal is rounded first
        AreEqual(V(0, 0, 0), V(0, 0, 0).Normalize());
        v.SetLength(5);
        AreEqual(5.0, v.Length, 1e-6);
        v.Set(0, 0, 0);
        v.SetLength(5);
        AreEqual(V(0, 0, 0), v);
        v.Set(V(1, -2, 3));
        v.Invert();
        AreEqual(V(-1, 2, -3), v);
    }

    [TestCase(0, false)] // the beginning itself is as far from the end as it is
    [TestCase(0.001f, true)]
    [TestCase(1, false)]
    [TestCase(-0.5f, false)]
    [TestCase(float.NaN, false)]
    public void FindsPointsBetween(float x, bool expected) =>
        AreEqual(expected, V(x, 0, 0).IsBetweenPoints(V(0, 0, 0), V(1, 0, 0)));

    [TestCase(1, 4)]
    [TestCase(0, 0)]
    [TestCase(0.25f, 1)]
    [TestCase(2, 8)]
    public void Interpolates(float d, float expected) {
        AreEqual(V(expected, 0, 0), V(4, 0, 0).GetInterpolated(V(0, 0, 0), d));
        AreEqual(V(0, 4 - expected, 0), V(0, 0, 0).GetInterpolated(V(0, 4, 0), d));
    }

    [TestCase("", "(1, 2.5, -3)")]
    [TestCase("de-DE", "(1, 2,5, -3)")]
    public void WritesTheCurrentCulturesNumbers(string culture, string expected) {
        CultureInfo before = Thread.CurrentThread.CurrentCulture;
        Thread.CurrentThread.CurrentCulture = CultureInfo.GetCultureInfo(culture);
        string written = V(1, 2.5f, -3).ToString();
        Thread.CurrentThread.CurrentCulture = before;
        AreEqual(expected, written);
    }
}

}
