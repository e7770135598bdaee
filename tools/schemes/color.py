"""What the eye makes of colours, and how an even ramp mixes them. Arrays of shape (..., 3).

Difference: CIEDE2000 after Sharma, Wu and Dalal (2005). Visions: Machado, Oliveira and Fernandes
(2009), severity 1.0, for protan and deutan; Brettel, Vienot and Mollon (1997) for tritan.
Mixing: OKLab (Ottosson 2020) with its lightness estimate Lr (2021), as the library's even ramps do.
"""

import numpy

XYZ = numpy.array(
    [
        [0.4124564, 0.3575761, 0.1804375],
        [0.2126729, 0.7151522, 0.0721750],
        [0.0193339, 0.1191920, 0.9503041],
    ]
)
XYZ = XYZ / XYZ.sum(axis=1, keepdims=True)
PROTAN = numpy.array(
    [
        [0.152286, 1.052583, -0.204868],
        [0.114503, 0.786281, 0.099216],
        [-0.003882, -0.048116, 1.051998],
    ]
)
DEUTAN = numpy.array(
    [
        [0.367322, 0.860646, -0.227968],
        [0.280085, 0.672501, 0.047413],
        [-0.011820, 0.042940, 0.968881],
    ]
)
TRITAN = (
    numpy.array(
        [[1.01277, 0.13548, -0.14826], [-0.01243, 0.86812, 0.14431], [0.07589, 0.80500, 0.11911]]
    ),
    numpy.array(
        [[0.93678, 0.18979, -0.12657], [0.06154, 0.81526, 0.12320], [-0.37562, 1.12767, 0.24796]]
    ),
)
TRITAN_PLANE = numpy.array([0.03901, -0.02788, -0.01113])
VISIONS = ("normal", "protan", "deutan", "tritan")

LMS_OF_RGB = numpy.array(
    [
        [0.4122214708, 0.5363325363, 0.0514459929],
        [0.2119034982, 0.6806995451, 0.1073969566],
        [0.0883024619, 0.2817188376, 0.6299787005],
    ]
)
LAB_OF_LMS = numpy.array(
    [
        [0.2104542553, 0.7936177850, -0.0040720468],
        [1.9779984951, -2.4285922050, 0.4505937099],
        [0.0259040371, 0.7827717662, -0.8086757660],
    ]
)
LMS_OF_LAB = numpy.array(
    [
        [1.0, 0.3963377774, 0.2158037573],
        [1.0, -0.1055613458, -0.0638541728],
        [1.0, -0.0894841775, -1.2914855480],
    ]
)
RGB_OF_LMS = numpy.array(
    [
        [4.0767416621, -3.3077115913, 0.2309699292],
        [-1.2684380046, 2.6097574011, -0.3413193965],
        [-0.0041960863, -0.7034186147, 1.7076147010],
    ]
)
K1, K2 = 0.206, 0.03
K3 = (1 + K1) / (1 + K2)


def rgb(text):
    """'#1b9e77 d95f02 ...' as whole numbers from 0 to 255."""
    words = text.replace("#", " ").split()
    return numpy.array(
        [[int(word[i : i + 2], 16) for i in (0, 2, 4)] for word in words], dtype=float
    )


def linear_of(colors):
    c = numpy.asarray(colors, dtype=float) / 255
    return numpy.where(c <= 0.04045, c / 12.92, ((c + 0.055) / 1.055) ** 2.4)


def encoded(linear):
    c = numpy.clip(linear, 0, 1)
    return 255 * numpy.where(c <= 0.0031308, 12.92 * c, 1.055 * c ** (1 / 2.4) - 0.055)


def seen(colors, vision):
    """Linear light as `vision` sees the colours."""
    light = linear_of(colors)
    if vision == "protan":
        light = light @ PROTAN.T
    elif vision == "deutan":
        light = light @ DEUTAN.T
    elif vision == "tritan":
        side = (light @ TRITAN_PLANE >= 0)[..., None]
        light = numpy.where(side, light @ TRITAN[0].T, light @ TRITAN[1].T)
    return numpy.clip(light, 0, 1)


def lab(colors, vision="normal"):
    t = seen(colors, vision) @ XYZ.T
    f = numpy.where(t > 216 / 24389, numpy.cbrt(t), (24389 / 27 * t + 16) / 116)
    x, y, z = f[..., 0], f[..., 1], f[..., 2]
    return numpy.stack([116 * y - 16, 500 * (x - y), 200 * (y - z)], axis=-1)


def difference(one, other):
    """CIEDE2000 of two arrays of L*a*b* colours."""
    l1, a1, b1 = (one[..., i] for i in range(3))
    l2, a2, b2 = (other[..., i] for i in range(3))
    mean_c7 = ((numpy.hypot(a1, b1) + numpy.hypot(a2, b2)) / 2) ** 7
    g = 0.5 * (1 - numpy.sqrt(mean_c7 / (mean_c7 + 25.0**7)))
    a1, a2 = (1 + g) * a1, (1 + g) * a2
    c1, c2 = numpy.hypot(a1, b1), numpy.hypot(a2, b2)
    h1, h2 = numpy.degrees(numpy.arctan2(b1, a1)) % 360, numpy.degrees(numpy.arctan2(b2, a2)) % 360
    gray = c1 * c2 == 0
    step = (h2 - h1 + 180) % 360 - 180
    mean_h = numpy.where(gray, h1 + h2, (h1 + step / 2) % 360)
    step = numpy.where(gray, 0, step)
    mean_l, mean_c = (l1 + l2) / 2, (c1 + c2) / 2

    def cosine(angle):
        return numpy.cos(numpy.radians(angle))

    t = (
        1
        - 0.17 * cosine(mean_h - 30)
        + 0.24 * cosine(2 * mean_h)
        + 0.32 * cosine(3 * mean_h + 6)
        - 0.20 * cosine(4 * mean_h - 63)
    )
    c7 = mean_c**7
    twist = 60 * numpy.exp(-(((mean_h - 275) / 25) ** 2))
    rotation = -2 * numpy.sqrt(c7 / (c7 + 25.0**7)) * numpy.sin(numpy.radians(twist))
    l50 = (mean_l - 50) ** 2
    dl = (l2 - l1) / (1 + 0.015 * l50 / numpy.sqrt(20 + l50))
    dc = (c2 - c1) / (1 + 0.045 * mean_c)
    dh = 2 * numpy.sqrt(c1 * c2) * numpy.sin(numpy.radians(step / 2)) / (1 + 0.015 * mean_c * t)
    return numpy.sqrt(numpy.maximum(dl**2 + dc**2 + dh**2 + rotation * dc * dh, 0))


def smallest_pair(colors, vision="normal"):
    """The smallest difference between any two of the colours."""
    seen_as = lab(colors, vision)
    first, second = numpy.triu_indices(len(seen_as), 1)
    return float(difference(seen_as[first], seen_as[second]).min())


def oklab(colors):
    """(Lr, a, b)"""
    ok = numpy.cbrt(linear_of(colors) @ LMS_OF_RGB.T) @ LAB_OF_LMS.T
    t = K3 * ok[..., 0] - K1
    estimate = 0.5 * (t + numpy.sqrt(t * t + 4 * K2 * K3 * ok[..., 0]))
    return numpy.concatenate([estimate[..., None], ok[..., 1:]], axis=-1)


def linear_of_oklab(ok):
    """Linear light of (Lr, a, b); outside 0 to 1 where sRGB does not reach."""
    estimate = ok[..., 0]
    lightness = estimate * (estimate + K1) / (K3 * (estimate + K2))
    lms = numpy.concatenate([lightness[..., None], ok[..., 1:]], axis=-1) @ LMS_OF_LAB.T
    return lms**3 @ RGB_OF_LMS.T


def of_lch(estimate, chroma, hue):
    """The sRGB colour of Lr, chroma and hue in degrees; the chroma gives way where it must."""
    low, high = 0.0, chroma
    for _ in range(24):
        c = (low + high) / 2 if low or high != chroma else chroma
        angle = numpy.radians(hue)
        light = linear_of_oklab(numpy.array([estimate, c * numpy.cos(angle), c * numpy.sin(angle)]))
        if light.min() >= -1e-4 and light.max() <= 1 + 1e-4:
            low = c
            if c == chroma:
                break
        else:
            high = c
    return numpy.rint(encoded(light))


def even_ramp(sources, level):
    """The colours that VOEvenColorRamp::split(level) makes of the sources."""
    sources = numpy.asarray(sources, dtype=float)
    if len(sources) == 1 or level == 1:
        return numpy.repeat(sources[:1], level, axis=0)
    place = numpy.arange(level) * (len(sources) - 1)
    steps = level - 1
    segment = numpy.minimum(place // steps, len(sources) - 2)
    t = ((place - segment * steps) / steps)[:, None]
    ok = oklab(sources)
    mixed = ok[segment] * (1 - t) + ok[segment + 1] * t
    colors = numpy.rint(encoded(linear_of_oklab(mixed)))
    exact = place % steps == 0
    colors[exact] = sources[place[exact] // steps]
    return colors
