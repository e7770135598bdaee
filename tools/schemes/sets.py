"""Which published sets become built-in schemes, and what is said of them."""

BREWER = "Cynthia Brewer"
VIRIDIS = "Nathaniel J. Smith, Stefan van der Walt, Eric Firing"
CRAMERI = "Fabio Crameri"
THYNG = "Kristen M. Thyng"

VIRIDIS_FAMILY = (
    ("viridis", "Violet over teal to yellow"),
    ("plasma", "Blue over pink to yellow"),
    ("inferno", "Black over red to pale yellow"),
    ("magma", "Black over purple to cream"),
)
SEQUENTIAL_TABLES = (
    ("SCM", "batlow", CRAMERI, "Blue over green and ochre to pink"),
    ("SCM", "batlowK", CRAMERI, "Black over green and ochre to pink"),
    ("SCM", "batlowW", CRAMERI, "Blue over green and ochre to white"),
    ("SCM", "acton", CRAMERI, "Dark violet over rose to near white"),
    ("SCM", "bamako", CRAMERI, "Dark green over olive to yellow"),
    ("SCM", "bilbao", CRAMERI, "White over gray-brown to dark red"),
    ("SCM", "buda", CRAMERI, "Magenta over tan to yellow"),
    ("SCM", "davos", CRAMERI, "Deep blue over gray-green to white"),
    ("SCM", "devon", CRAMERI, "Night blue over lilac to white"),
    ("SCM", "hawaii", CRAMERI, "Magenta over brown and green to pale cyan"),
    ("SCM", "imola", CRAMERI, "Blue over gray-green to yellow"),
    ("SCM", "lajolla", CRAMERI, "Pale yellow over orange and red to near black"),
    ("SCM", "lapaz", CRAMERI, "Blue over gray-green to off-white"),
    ("SCM", "nuuk", CRAMERI, "Blue-gray over sage to pale yellow"),
    ("SCM", "oslo", CRAMERI, "Black over blue to white"),
    ("SCM", "tokyo", CRAMERI, "Dark purple over gray to pale green"),
    ("SCM", "turku", CRAMERI, "Black over olive to pale rose"),
    ("cmocean", "algae", THYNG, "Pale to dark green"),
    ("cmocean", "amp", THYNG, "Off-white to dark red"),
    ("cmocean", "dense", THYNG, "Pale blue over violet to dark plum"),
    ("cmocean", "haline", THYNG, "Indigo over teal to pale yellow"),
    ("cmocean", "ice", THYNG, "Near black over blue to ice white"),
    ("cmocean", "matter", THYNG, "Pale yellow over red to dark purple"),
    ("cmocean", "rain", THYNG, "Off-white over sand and green to dark violet"),
    ("cmocean", "solar", THYNG, "Dark brown over orange to yellow"),
    ("cmocean", "speed", THYNG, "Pale yellow over green to near black"),
    ("cmocean", "tempo", THYNG, "White over green to dark blue"),
    ("cmocean", "thermal", THYNG, "Dark blue over purple and orange to yellow"),
    ("cmocean", "turbid", THYNG, "Pale yellow to dark brown"),
)
CYCLIC_TABLES = (
    ("SCM", "bamO", CRAMERI, "Directions and times of day"),
    ("SCM", "brocO", CRAMERI, "Directions and times of day"),
    ("SCM", "corkO", CRAMERI, "Directions and times of day"),
    ("SCM", "romaO", CRAMERI, "Directions and times of day"),
    ("SCM", "vikO", CRAMERI, "Directions and times of day"),
    ("cmocean", "phase", THYNG, "Phases and directions at nearly one lightness"),
)
DIVERGING_TABLES = (
    ("SCM", "vik", CRAMERI, "Blue over white to red-brown"),
    ("SCM", "roma", CRAMERI, "Brown over pale green to blue"),
    ("SCM", "broc", CRAMERI, "Blue over white to olive"),
    ("SCM", "cork", CRAMERI, "Blue over white to green"),
    ("SCM", "bam", CRAMERI, "Purple over white to green"),
    ("SCM", "vanimo", CRAMERI, "Lilac over near black to green"),
    ("SCM", "berlin", CRAMERI, "Pale blue over near black to pale red"),
    ("SCM", "lisbon", CRAMERI, "Pale blue over near black to pale yellow"),
    ("SCM", "tofino", CRAMERI, "Pale blue over near black to pale green"),
    ("cmocean", "balance", THYNG, "Dark blue over white to dark red"),
    ("cmocean", "curl", THYNG, "Navy and teal over white to dark plum"),
    ("cmocean", "diff", THYNG, "Dark blue over white to dark olive"),
    ("cmocean", "tarn", THYNG, "Dark olive and brown over white to teal and navy"),
)
PARTED = (
    ("SCM", "oleron", CRAMERI, "Blue to pale water", "dark green over ochre to pale land"),
    ("SCM", "bukavu", CRAMERI, "Blue to pale green water", "dark green over brown to pale land"),
    ("SCM", "fes", CRAMERI, "Black to light gray water", "dark green over brown to pale land"),
    (
        "cmocean",
        "topo",
        THYNG,
        "Purple over teal to pale yellow water",
        "dark green over ochre to pale land",
    ),
)
CRAMERI_CATEGORICAL = ("batlowS", "hawaiiS", "lajollaS", "tokyoS", "turkuS", "bamakoS", "bilbaoS")
BREWER_SEQUENTIAL = (
    ("Blues", "Pale to dark blue"),
    ("BuGn", "Pale mint to green"),
    ("BuPu", "Pale blue to purple"),
    ("GnBu", "Pale green to blue"),
    ("Greens", "Pale to dark green"),
    ("Greys", "White to dark gray"),
    ("Oranges", "Pale to dark orange"),
    ("OrRd", "Pale orange to dark red"),
    ("PuBu", "Pale purple to blue"),
    ("PuBuGn", "Pale purple over blue to green"),
    ("PuRd", "Pale purple to dark red"),
    ("Purples", "Pale to dark purple"),
    ("RdPu", "Pale rose to purple"),
    ("Reds", "Pale to dark red"),
    ("YlGn", "Pale yellow to green"),
    ("YlGnBu", "Pale yellow over green to blue"),
    ("YlOrBr", "Pale yellow over orange to brown"),
    ("YlOrRd", "Pale yellow over orange to red"),
)
BREWER_DIVERGING = (
    ("BrBG", "Brown and blue-green"),
    ("PiYG", "Pink and yellow-green"),
    ("PRGn", "Purple and green"),
    ("PuOr", "Orange and purple"),
    ("RdBu", "Red and blue"),
    ("RdGy", "Red and gray"),
    ("RdYlBu", "Red and blue from a yellow middle"),
    ("RdYlGn", "Red and green from a yellow middle"),
    ("Spectral", "Red over yellow to blue"),
)
BREWER_QUALITATIVE = (
    ("Accent", "Soft and strong colors for emphasis"),
    ("Dark2", "Dark colors for lines and symbols"),
    ("Paired", "Pairs of a light and a dark color"),
    ("Pastel1", "Pale fills"),
    ("Pastel2", "Pale fills, quieter"),
    ("Set1", "Strong colors for small areas"),
    ("Set2", "Soft colors for larger areas"),
    ("Set3", "Light colors for large areas"),
)
