; Coordinate systems of the world, starter set. Made by scripts/make_starter_database.py.
; Parameters from the EPSG Geodetic Parameter Dataset (IOGP); see NOTICE.

[General]
Group count=7
System count=20
Ellipsoid count=5
Datumtransf count=8
Unit count=3
Projection count=10

[Groups Section]
1=World
2=North Sea
3=Gulf of Mexico
4=United Kingdom
5=USA - Arizona
6=Australia
7=Examples

[Gp-World]
1=WGS 84 - UTM zone 15N
2=WGS 84 - UTM zone 16N
3=WGS 84 - UTM zone 30N
4=WGS 84 - UTM zone 31N
5=WGS 84 - UTM zone 32N
System count=5

[Gp-North Sea]
1=WGS 84 - UTM zone 30N
2=WGS 84 - UTM zone 31N
3=WGS 84 - UTM zone 32N
4=ED50 - UTM zone 30N
5=ED50 - UTM zone 31N
6=ED50 - UTM zone 32N
7=ETRS89 - UTM zone 30N
8=ETRS89 - UTM zone 31N
9=ETRS89 - UTM zone 32N
System count=9

[Gp-Gulf of Mexico]
1=WGS 84 - UTM zone 15N
2=WGS 84 - UTM zone 16N
3=NAD27 - UTM zone 15N
4=NAD27 - UTM zone 16N
5=NAD27 - BLM 15N (ftUS)
6=NAD27 - BLM 16N (ftUS)
System count=6

[Gp-United Kingdom]
1=OSGB36 - British National Grid
System count=1

[Gp-USA - Arizona]
1=NAD83 - Arizona East (ft)
System count=1

[Gp-Australia]
1=GDA2020 - MGA zone 50
System count=1

[Gp-Examples]
1=Example - harbour grid with post corrections
2=Example - UTM zone 31N with a fixed geoid separation
System count=2

[Sys-WGS 84 - UTM zone 15N]
Datumtransform name=No Transformation
Unit name=Meters
Ellipsoid name=WGS84
Projection name=UTM Zone-15N
Geoid model use statu=0
System description=EPSG 32615. No transformation.

[Sys-WGS 84 - UTM zone 16N]
Datumtransform name=No Transformation
Unit name=Meters
Ellipsoid name=WGS84
Projection name=UTM Zone-16N
Geoid model use statu=0
System description=EPSG 32616. No transformation.

[Sys-WGS 84 - UTM zone 30N]
Datumtransform name=No Transformation
Unit name=Meters
Ellipsoid name=WGS84
Projection name=UTM Zone-30N
Geoid model use statu=0
System description=EPSG 32630. No transformation.

[Sys-WGS 84 - UTM zone 31N]
Datumtransform name=No Transformation
Unit name=Meters
Ellipsoid name=WGS84
Projection name=UTM Zone-31N
Geoid model use statu=0
System description=EPSG 32631. No transformation.

[Sys-WGS 84 - UTM zone 32N]
Datumtransform name=No Transformation
Unit name=Meters
Ellipsoid name=WGS84
Projection name=UTM Zone-32N
Geoid model use statu=0
System description=EPSG 32632. No transformation.

[Sys-ED50 - UTM zone 30N]
Datumtransform name=WGS84 to ED50 (EPSG 1311)
Unit name=Meters
Ellipsoid name=International 1924
Projection name=UTM Zone-30N
Geoid model use statu=0
System description=EPSG 23030. Transformation accuracy 1 m.

[Sys-ED50 - UTM zone 31N]
Datumtransform name=WGS84 to ED50 (EPSG 1311)
Unit name=Meters
Ellipsoid name=International 1924
Projection name=UTM Zone-31N
Geoid model use statu=0
System description=EPSG 23031. Transformation accuracy 1 m.

[Sys-ED50 - UTM zone 32N]
Datumtransform name=WGS84 to ED50 (EPSG 1311)
Unit name=Meters
Ellipsoid name=International 1924
Projection name=UTM Zone-32N
Geoid model use statu=0
System description=EPSG 23032. Transformation accuracy 1 m.

[Sys-ETRS89 - UTM zone 30N]
Datumtransform name=WGS84 to ETRS89 (EPSG 1149)
Unit name=Meters
Ellipsoid name=GRS 1980
Projection name=UTM Zone-30N
Geoid model use statu=0
System description=EPSG 25830. Transformation accuracy 1 m.

[Sys-ETRS89 - UTM zone 31N]
Datumtransform name=WGS84 to ETRS89 (EPSG 1149)
Unit name=Meters
Ellipsoid name=GRS 1980
Projection name=UTM Zone-31N
Geoid model use statu=0
System description=EPSG 25831. Transformation accuracy 1 m.

[Sys-ETRS89 - UTM zone 32N]
Datumtransform name=WGS84 to ETRS89 (EPSG 1149)
Unit name=Meters
Ellipsoid name=GRS 1980
Projection name=UTM Zone-32N
Geoid model use statu=0
System description=EPSG 25832. Transformation accuracy 1 m.

[Sys-NAD27 - UTM zone 15N]
Datumtransform name=WGS84 to NAD27 (EPSG 15853)
Unit name=Meters
Ellipsoid name=Clarke 1866
Projection name=UTM Zone-15N
Geoid model use statu=0
System description=EPSG 26715. Gulf of Mexico 95 W to 87.25 W. Transformation accuracy 5 m.

[Sys-NAD27 - UTM zone 16N]
Datumtransform name=WGS84 to NAD27 (EPSG 15856)
Unit name=Meters
Ellipsoid name=Clarke 1866
Projection name=UTM Zone-16N
Geoid model use statu=0
System description=EPSG 26716. Gulf of Mexico outer continental shelf. Transformation accuracy 8 m.

[Sys-NAD27 - BLM 15N (ftUS)]
Datumtransform name=WGS84 to NAD27 (EPSG 15853)
Unit name=US Survey Feet
Ellipsoid name=Clarke 1866
Projection name=BLM zone 15N (US survey feet)
Geoid model use statu=0
System description=EPSG 32065. Gulf of Mexico 95 W to 87.25 W. Transformation accuracy 5 m.

[Sys-NAD27 - BLM 16N (ftUS)]
Datumtransform name=WGS84 to NAD27 (EPSG 15856)
Unit name=US Survey Feet
Ellipsoid name=Clarke 1866
Projection name=BLM zone 16N (US survey feet)
Geoid model use statu=0
System description=EPSG 32066. Gulf of Mexico outer continental shelf. Transformation accuracy 8 m.

[Sys-OSGB36 - British National Grid]
Datumtransform name=WGS84 to OSGB36 (EPSG 1314)
Unit name=Meters
Ellipsoid name=Airy 1830
Projection name=British National Grid
Geoid model use statu=0
System description=EPSG 27700. Great Britain. Transformation accuracy 2 m.

[Sys-NAD83 - Arizona East (ft)]
Datumtransform name=WGS84 to NAD83 (EPSG 1188)
Unit name=Feet
Ellipsoid name=GRS 1980
Projection name=SPCS83 Arizona East zone (International feet)
Geoid model use statu=0
System description=EPSG 2222. Arizona, eastern counties, international feet. Transformation accuracy 4 m.

[Sys-GDA2020 - MGA zone 50]
Datumtransform name=ITRF2014 to GDA2020 (EPSG 8049)
Unit name=Meters
Ellipsoid name=GRS 1980
Projection name=UTM Zone-50S
Geoid model use statu=0
System description=EPSG 7850. Australia 114 E to 120 E. Time-dependent: positions move 7 cm a year against the grid.

[Sys-Example - harbour grid with post corrections]
Datumtransform name=WGS84 to ETRS89 (EPSG 1149)
Unit name=Meters
Ellipsoid name=GRS 1980
Projection name=UTM Zone-31N
Geoid model use statu=0
Post coorection statu=1
Post X coorection=1.25
Post Y coorection=-0.75
Post Z coorection=0.5
Post horizontal adjust statu=1
Post horizonal origin X=595000
Post horizonal origin Y=5759000
Post horizonal rotation=12
Post horizonal scale=1.00001
Post vertical adjust statu=1
Post vertical origin X=595000
Post vertical origin Y=5759000
Post vertical slope X=4
Post vertical slope Y=-2.5
System description=Made up, to show post corrections: shifts, a horizontal adjust about 595000 5759000 and an inclined plane.

[Sys-Example - UTM zone 31N with a fixed geoid separation]
Datumtransform name=WGS84 to ETRS89 (EPSG 1149)
Unit name=Meters
Ellipsoid name=GRS 1980
Projection name=UTM Zone-31N
Geoid model use statu=1
Manual input value=43.25
Geoid model grid=
Geoid model method=Manual
System description=Made up, to show a fixed geoid separation of 43.25 m, near that of the southern North Sea.

[DatumTransform Section]
1=No Transformation
2=WGS84 to ED50 (EPSG 1311)
3=WGS84 to OSGB36 (EPSG 1314)
4=WGS84 to NAD27 (EPSG 15853)
5=WGS84 to NAD27 (EPSG 15856)
6=WGS84 to ETRS89 (EPSG 1149)
7=WGS84 to NAD83 (EPSG 1188)
8=ITRF2014 to GDA2020 (EPSG 8049)

[Dtf-No Transformation]
Method name=No Transformation
Source ellipsoid=WGS84
Target ellipsoid=WGS84
Description=Positions pass unchanged

[Dtf-WGS84 to ED50 (EPSG 1311)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=International 1924
Shift X=89.499821
Shift Y=93.799955
Shift Z=123.099853
Rotation X=0
Rotation Y=0
Rotation Z=0.156
Scale=-1.199998751
Description=ED50 to WGS 84 (18), EPSG 1311, Common Offshore, inverted; North Sea and Irish waters; accuracy 1 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378388
DstSe=0.006722670022333321

[Dtf-WGS84 to OSGB36 (EPSG 1314)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=Airy 1830
Shift X=-446.45599
Shift Y=125.161008
Shift Z=-542.0717
Rotation X=-0.149999496
Rotation Y=-0.247000306
Rotation Z=-0.84200009
Scale=20.489413599
Description=OSGB36 to WGS 84 (6), EPSG 1314, petroleum transformation, inverted; Great Britain; accuracy 2 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6377563.396
DstSe=0.006670539999985363

[Dtf-WGS84 to NAD27 (EPSG 15853)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=Clarke 1866
Shift X=7
Shift Y=-151
Shift Z=-175
Rotation X=0
Rotation Y=0
Rotation Z=0
Scale=0
Description=NAD27 to WGS 84 (81), EPSG 15853, inverted; Gulf of Mexico 95 W to 87.25 W; accuracy 5 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378206.4
DstSe=0.006768657997291273

[Dtf-WGS84 to NAD27 (EPSG 15856)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=Clarke 1866
Shift X=7
Shift Y=-158
Shift Z=-172
Rotation X=0
Rotation Y=0
Rotation Z=0
Scale=0
Description=NAD27 to WGS 84 (84), EPSG 15856, inverted; Gulf of Mexico outer continental shelf; accuracy 8 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378206.4
DstSe=0.006768657997291273

[Dtf-WGS84 to ETRS89 (EPSG 1149)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=GRS 1980
Shift X=0
Shift Y=0
Shift Z=0
Rotation X=0
Rotation Y=0
Rotation Z=0
Scale=0
Description=ETRS89 to WGS 84 (1), EPSG 1149; Europe; accuracy 1 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378137
DstSe=0.006694380022900787

[Dtf-WGS84 to NAD83 (EPSG 1188)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=GRS 1980
Shift X=0
Shift Y=0
Shift Z=0
Rotation X=0
Rotation Y=0
Rotation Z=0
Scale=0
Description=NAD83 to WGS 84 (1), EPSG 1188; North America; accuracy 4 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378137
DstSe=0.006694380022900787

[Dtf-ITRF2014 to GDA2020 (EPSG 8049)]
Method name=Helmert(14 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=GRS 1980
Shift X=0
Shift Y=0
Shift Z=0
Rotation X=0
Rotation Y=0
Rotation Z=0
Scale=0
Description=ITRF2014 to GDA2020 (1), EPSG 8049, coordinate frame rotations with the sign of the position vector; Australia; accuracy 0.03 m. WGS84 positions are taken as ITRF2014
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=-0.00150379
Rotation rate Y=-0.00118346
Rotation rate Z=-0.00120716
Scale rate=0
Epoch=2020
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378137
DstSe=0.006694380022900787

[Projections section]
1=UTM Zone-15N
2=UTM Zone-16N
3=UTM Zone-30N
4=UTM Zone-31N
5=UTM Zone-32N
6=UTM Zone-50S
7=British National Grid
8=BLM zone 15N (US survey feet)
9=BLM zone 16N (US survey feet)
10=SPCS83 Arizona East zone (International feet)

[Prj-UTM Zone-15N]
Projection type=1
Projection method=Universal Transverse Mercator
Unit name=Meters
LatOrigin=0
LonOrigin=-93
FalseEasting=500000
FalseNorthing=0
ScaleFactor=0.9996
GridSkew=0
UTMZone=Zone 15     ( 93 W)
Hemisphere=Northern

[Prj-UTM Zone-16N]
Projection type=1
Projection method=Universal Transverse Mercator
Unit name=Meters
LatOrigin=0
LonOrigin=-87
FalseEasting=500000
FalseNorthing=0
ScaleFactor=0.9996
GridSkew=0
UTMZone=Zone 16     ( 87 W)
Hemisphere=Northern

[Prj-UTM Zone-30N]
Projection type=1
Projection method=Universal Transverse Mercator
Unit name=Meters
LatOrigin=0
LonOrigin=-3
FalseEasting=500000
FalseNorthing=0
ScaleFactor=0.9996
GridSkew=0
UTMZone=Zone 30     (  3 W)
Hemisphere=Northern

[Prj-UTM Zone-31N]
Projection type=1
Projection method=Universal Transverse Mercator
Unit name=Meters
LatOrigin=0
LonOrigin=3
FalseEasting=500000
FalseNorthing=0
ScaleFactor=0.9996
GridSkew=0
UTMZone=Zone 31     (  3 E)
Hemisphere=Northern

[Prj-UTM Zone-32N]
Projection type=1
Projection method=Universal Transverse Mercator
Unit name=Meters
LatOrigin=0
LonOrigin=9
FalseEasting=500000
FalseNorthing=0
ScaleFactor=0.9996
GridSkew=0
UTMZone=Zone 32     (  9 E)
Hemisphere=Northern

[Prj-UTM Zone-50S]
Projection type=1
Projection method=Universal Transverse Mercator
Unit name=Meters
LatOrigin=0
LonOrigin=117
FalseEasting=500000
FalseNorthing=10000000
ScaleFactor=0.9996
GridSkew=0
UTMZone=Zone 50     (117 E)
Hemisphere=Southern

[Prj-British National Grid]
Projection type=0
Projection method=Transverse Mercator
Unit name=Meters
LatOrigin=49
LonOrigin=-2
FalseEasting=400000
FalseNorthing=-100000
ScaleFactor=0.9996012717
GridSkew=0

[Prj-BLM zone 15N (US survey feet)]
Projection type=0
Projection method=Transverse Mercator
Unit name=US Survey Feet
LatOrigin=0
LonOrigin=-93
FalseEasting=1640416.67
FalseNorthing=0
ScaleFactor=0.9996
GridSkew=0

[Prj-BLM zone 16N (US survey feet)]
Projection type=0
Projection method=Transverse Mercator
Unit name=US Survey Feet
LatOrigin=0
LonOrigin=-87
FalseEasting=1640416.67
FalseNorthing=0
ScaleFactor=0.9996
GridSkew=0

[Prj-SPCS83 Arizona East zone (International feet)]
Projection type=0
Projection method=Transverse Mercator
Unit name=Feet
LatOrigin=31
LonOrigin=-110.16666666666667
FalseEasting=700000
FalseNorthing=0
ScaleFactor=0.9999
GridSkew=0

[Ellipsoids section]
1=WGS84
2=GRS 1980
3=International 1924
4=Airy 1830
5=Clarke 1866

[Elp-WGS84]
SemiMajor=6378137
EccSqrd=0.0066943799901413165

[Elp-GRS 1980]
SemiMajor=6378137
EccSqrd=0.006694380022900787

[Elp-International 1924]
SemiMajor=6378388
EccSqrd=0.006722670022333321

[Elp-Airy 1830]
SemiMajor=6377563.396
EccSqrd=0.006670539999985363

[Elp-Clarke 1866]
SemiMajor=6378206.4
EccSqrd=0.006768657997291273

[Units section]
Meters=1,m
Feet=0.3048,ft
US Survey Feet=0.3048006096012192,ftUS
