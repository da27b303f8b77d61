// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System.Globalization;
using System.Threading;
using NUnit.Framework;

namespace Sonimbra.Tests {

[TestFixture]
public class Vector3DTests {
    private static readonly Vector3D NotANumber = V(float.NaN, 0, 0);

    private static Vector3D V(float x, float y, float z) {
        return new Vector3D(x, y, z);
    }

    [Test]
    public void ComparesExactly() {
        Vector3D one = V(1, 2, 3);
        Assert.IsTrue(one == V(1, 2, 3) && one.Equals((object)V(1, 2, 3)));
        foreach (Vector3D other in new[] { V(1.0000001f, 2, 3), V(1, 2.5f, 3), V(1, 2, -3) }) {
            Assert.IsTrue(one != other && !(one == other) && !one.Equals(other), "{0}", other);
        }
        Vector3D same = NotANumber;
        Assert.IsFalse(NotANumber == same || NotANumber.Equals(same));
        Assert.IsFalse(one.Equals(null) || one.Equals("(1, 2, 3)"));
        Assert.AreEqual(V(0.0f, 0, 0).GetHashCode(), V(-0.0f, 0, 0).GetHashCode());
        Assert.AreEqual(V(0, 0, 0), new Vector3D());
    }

    [Test]
    public void CalculatesInDoublePrecisionAndStoresSingle() {
        Assert.AreEqual(V(5, 7, 9), V(1, 2, 3) + V(4, 5, 6));
        Assert.AreEqual(V(-3, -4, -5), V(1, 2, 3) - V(4, 6, 8));
        Assert.AreEqual(V(2, 4, 6), V(1, 2, 3) * 2);
        Assert.AreEqual(V(2, 4, 6), 2 * V(1, 2, 3));
        Assert.AreEqual(V(0.5f, 1, 1.5f), V(1, 2, 3) / 2);
        Assert.AreEqual(V(1 / 3.0f, 0, 0), V(1, 0, 0) / 3);
        Vector3D infinite = V(1, -1, 0) / 0;
        Assert.AreEqual(float.PositiveInfinity, infinite.X);
        Assert.AreEqual(float.NegativeInfinity, infinite.Y);
        Assert.IsNaN(infinite.Z);
        // These have more digits than single precision.
        Assert.AreEqual(100000020000001.0, V(10000001, 0, 0).GetLengthSQ());
        Assert.AreEqual(100000020000001.0, V(0, 0, 10000001).LengthSQ);
        Assert.AreEqual(1.0f, V(1e7f, 1, 1e7f).DotProduct(V(1e7f, 1, -1e7f)));
        Assert.AreEqual(V(1, 0, 0),
                        V(0, 10000001, 10000000).CrossProduct(V(0, 10000002, 10000001)));
        Assert.AreEqual(V(-3, 6, -3), V(1, 2, 3).CrossProduct(V(4, 5, 6)));
        Assert.AreEqual(13.0, V(3, 4, 12).GetLength());
        Assert.AreEqual(13.0, V(3, -4, 12).Length);
        Assert.AreEqual(16777217.0, V(16777216, 0, 0).GetDistanceFrom(V(-1, 0, 0)));
        Assert.AreEqual(281474976710656.0f, V(16777216, 0, 0).GetDistanceFromSQ(V(-1, 0, 0)));
    }

    [Test]
    public void NormalizesInPlace() {
        Vector3D v = V(0, 3, 4);
        Assert.AreEqual(V(0, 3 * 0.2f, 4 * 0.2f), v.Normalize());
        Assert.AreEqual(V(0, 3 * 0.2f, 4 * 0.2f), v);
        // The reciprocal is rounded before it multiplies.
        Assert.AreEqual(0.99999994f, V(41, 0, 0).Normalize().X);
        Assert.AreEqual(V(0, 0, 0), V(0, 0, 0).Normalize());

        v.SetLength(5);
        Assert.AreEqual(5.0, v.Length, 1e-6);
        v.Set(0, 0, 0);
        v.SetLength(5);
        Assert.AreEqual(V(0, 0, 0), v);
        v.Set(V(1, -2, 3));
        v.Invert();
        Assert.AreEqual(V(-1, 2, -3), v);
    }

    [TestCase(0, false)] // the beginning itself is as far from the end as it is
    [TestCase(0.001f, true)]
    [TestCase(0.5f, true)]
    [TestCase(1, false)]
    [TestCase(-0.5f, false)]
    [TestCase(2, false)]
    [TestCase(float.NaN, false)]
    public void FindsPointsBetween(float x, bool expected) {
        Assert.AreEqual(expected, V(x, 0, 0).IsBetweenPoints(V(0, 0, 0), V(1, 0, 0)));
    }

    [TestCase(1, 4)]
    [TestCase(0, 0)]
    [TestCase(0.25f, 1)]
    [TestCase(2, 8)]
    [TestCase(-1, -4)]
    public void Interpolates(float d, float expected) {
        Assert.AreEqual(V(expected, 0, 0), V(4, 0, 0).GetInterpolated(V(0, 0, 0), d));
        Assert.AreEqual(V(0, 4 - expected, 0), V(0, 0, 0).GetInterpolated(V(0, 4, 0), d));
    }

    [TestCase("", "(1, 2.5, -3)")]
    [TestCase("de-DE", "(1, 2,5, -3)")]
    public void WritesTheCurrentCulturesNumbers(string culture, string expected) {
        CultureInfo before = Thread.CurrentThread.CurrentCulture;
        Thread.CurrentThread.CurrentCulture = CultureInfo.GetCultureInfo(culture);
        try {
            Assert.AreEqual(expected, V(1, 2.5f, -3).ToString());
        } finally {
            Thread.CurrentThread.CurrentCulture = before;
        }
    }
}

}
