#pragma once

/// A sum of sines of even multiples of an angle x, a2 sin 2x + a4 sin 4x + a6 sin 6x + a8 sin 8x,
/// from the sine and cosine of x alone: sin x cos x times a polynomial in cos^2 x. The series of
/// the meridian distance and of the auxiliary latitudes have this form.
///
/// Error: a few units of the last place of the largest coefficient.
class EvenSines {
public:
    constexpr EvenSines() = default;
    constexpr EvenSines(double a2, double a4, double a6, double a8)
        : m_k1(2.0 * (a2 - 2.0 * a4 + 3.0 * a6 - 4.0 * a8)), m_k2(8.0 * (a4 - 4.0 * a6 + 10.0 * a8)),
          m_k3(32.0 * (a6 - 6.0 * a8)), m_k4(128.0 * a8)
    {
    }

    /// `s`, `c` sine and cosine of x.
    constexpr double operator()(double s, double c) const
    {
        const double cc = c * c;
        return (((m_k4 * cc + m_k3) * cc + m_k2) * cc + m_k1) * (s * c);
    }

private:
    double m_k1 = 0.0, m_k2 = 0.0, m_k3 = 0.0, m_k4 = 0.0;
};
