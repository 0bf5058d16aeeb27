; Systems that the tests describe: one for every projection, datum method and correction.
; scripts/make_xml_goldens.py reads it too: plain keys and values, no escapes.

[Groups Section]
1=Descriptions

[Gp-Descriptions]
1=Transverse Mercator
2=UTM South
3=UTM North
4=RD
5=RD Without Keys
6=Lambert 2 Parallel
7=Mercator
8=Stereographic
9=Cassini
10=Hotine A
11=Lambert 1 Parallel
12=Hotine B
13=Polyconic
14=Universal Polar Stereographic
15=Datum Bursa 7
16=Datum Helmert 7
17=Datum Bursa 14
18=Datum Helmert 14
19=Datum Fixed Height
20=Names
21=Geoid Model
22=Geoid Manual
23=Post Model
24=Post Shifts
25=Post Rotation Alone
26=Post Plane Alone
27=Post All

[Sys-Transverse Mercator]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=Skewed TM

[Sys-UTM South]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=Zone 31 South

[Sys-UTM North]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=Zone 5 North

[Sys-RD]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=Dutch Grid

[Sys-RD Without Keys]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=Dutch Grid Of Old

[Sys-Lambert 2 Parallel]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=Two Parallels

[Sys-Mercator]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=True Scale

[Sys-Stereographic]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=Oblique

[Sys-Cassini]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=Island

[Sys-Hotine A]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=Coast

[Sys-Lambert 1 Parallel]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=One Parallel

[Sys-Hotine B]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=Timber Coast

[Sys-Polyconic]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=Many Cones

[Sys-Universal Polar Stereographic]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=South Pole

[Sys-Datum Bursa 7]
Datumtransform name=Bursa 7
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Oblique

[Sys-Datum Helmert 7]
Datumtransform name=Helmert 7
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Oblique

[Sys-Datum Bursa 14]
Datumtransform name=Bursa 14
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Oblique

[Sys-Datum Helmert 14]
Datumtransform name=Helmert 14
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Oblique

[Sys-Datum Fixed Height]
Datumtransform name=Fixed Height
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Oblique

[Sys-Names]
Datumtransform name=Lost <Ellipsoids>
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=Tweed & Tyne

[Sys-Geoid Model]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=Oblique
Geoid model use statu=1
Geoid model method=EGM96
Geoid model grid=egm96.gtx

[Sys-Geoid Manual]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=Oblique
Geoid model use statu=1
Geoid model method=Manual
Manual input value=43.25

[Sys-Post Model]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=Oblique
Post coorection model=ntv2
Post coorection file=shifts.gsb

[Sys-Post Shifts]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=Oblique
Post coorection statu=1
Post X coorection=10.5
Post Y coorection=-20.25
Post Z coorection=1234567.875

[Sys-Post Rotation Alone]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=Oblique
Post horizontal adjust statu=1
Post horizonal origin X=0
Post horizonal origin Y=0
Post horizonal rotation=3600
Post horizonal scale=0

[Sys-Post Plane Alone]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=Oblique
Post vertical adjust statu=1
Post vertical origin X=100
Post vertical origin Y=-200
Post vertical slope X=1000
Post vertical slope Y=-0.5

[Sys-Post All]
Datumtransform name=None
Unit name=Meters
Ellipsoid name=Round Numbers
Projection name=Oblique
Geoid model use statu=1
Geoid model method=EGM96
Geoid model grid=egm96.gtx
Post coorection model=OSTN
Post coorection statu=1
Post X coorection=0.000001
Post Y coorection=2
Post Z coorection=-0.5
Post horizontal adjust statu=1
Post horizonal origin X=500000
Post horizonal origin Y=5760000.5
Post horizonal rotation=-12.5
Post horizonal scale=1.0000125
Post vertical adjust statu=1
Post vertical origin X=1
Post vertical origin Y=2
Post vertical slope X=3
Post vertical slope Y=4

[DatumTransform Section]
1=None
2=Bursa 7
3=Helmert 7
4=Bursa 14
5=Helmert 14
6=Fixed Height
7=Lost <Ellipsoids>

[Dtf-None]
Method name=No Transformation

[Dtf-Bursa 7]
Method name=Bursa/Wolfe(7 Parameters)
Source=WGS84
Target ellipsoid=Bessel 1841
Shift X=-565.7346
Shift Y=-50.4058
Shift Z=-465.2895
Rotation X=0.2
Rotation Y=-0.15
Rotation Z=0
Scale=-4.07244

[Dtf-Helmert 7]
Method name=Helmert(7 Parameters)
Source=WGS84
Target ellipsoid=Bessel 1841
Shift X=-565.7346
Shift Y=-50.4058
Shift Z=-465.2895
Rotation X=0.2
Rotation Y=-0.15
Rotation Z=0
Scale=-4.07244
Shift rate X=0.011
Shift rate Y=-0.022
Shift rate Z=0.000015
Rotation rate X=0.0011
Rotation rate Y=-0.0022
Rotation rate Z=0.0015
Scale rate=0.003
Epoch=2010.5

[Dtf-Bursa 14]
Method name=Bursa/Wolfe(14 Parameters)
Source=WGS84
Target ellipsoid=Bessel 1841
Shift X=-565.7346
Shift Y=-50.4058
Shift Z=-465.2895
Rotation X=0.2
Rotation Y=-0.15
Rotation Z=0
Scale=-4.07244
Shift rate X=0.011
Shift rate Y=-0.022
Shift rate Z=0.000015
Rotation rate X=0.0011
Rotation rate Y=-0.0022
Rotation rate Z=0.0015
Scale rate=0.003
Epoch=2010.5

[Dtf-Helmert 14]
Method name=Helmert(14 Parameters)
Source=WGS84
Target ellipsoid=Bessel 1841
Shift X=-565.7346
Shift Y=-50.4058
Shift Z=-465.2895
Rotation X=0.2
Rotation Y=-0.15
Rotation Z=0
Scale=-4.07244
Shift rate X=0.011
Shift rate Y=-0.022
Shift rate Z=0.000015
Rotation rate X=0.0011
Rotation rate Y=-0.0022
Rotation rate Z=0.0015
Scale rate=0.003
Epoch=2010.5
Fixed height=1
Fixed height forward=44.5
Fixed height reverse=-3

[Dtf-Fixed Height]
Method name=Bursa/Wolfe(7 Parameters)
Source=WGS84
Target ellipsoid=Bessel 1841
Shift X=-565.7346
Shift Y=-50.4058
Shift Z=-465.2895
Rotation X=0.2
Rotation Y=-0.15
Rotation Z=0
Scale=-4.07244
Fixed height=1

[Dtf-Lost <Ellipsoids>]
Method name=Bursa/Wolfe(7 Parameters)
Source=Gone
Target ellipsoid=Round Numbers
Shift X=-565.7346
Shift Y=-50.4058
Shift Z=-465.2895
Rotation X=0.2
Rotation Y=-0.15
Rotation Z=0
Scale=-4.07244
SrcSma=6378388
SrcSe=0.006722670022

[Projections section]
1=Skewed TM
2=Zone 31 South
3=Zone 5 North
4=Dutch Grid
5=Dutch Grid Of Old
6=Two Parallels
7=True Scale
8=Oblique
9=Island
10=Coast
11=One Parallel
12=Timber Coast
13=Many Cones
14=South Pole
15=Tweed & Tyne

[Prj-Skewed TM]
Projection type=0
Projection method=Transverse Mercator
LatOrigin=49
LonOrigin=-2
FalseEasting=400000.1234
FalseNorthing=-100000.0005
ScaleFactor=0.9996012717
GridSkew=1.23456789

[Prj-Zone 31 South]
Projection type=1
Projection method=Universal Transverse Mercator
LatOrigin=0
LonOrigin=3
FalseEasting=500000
FalseNorthing=10000000
ScaleFactor=0.9996
GridSkew=0
UTMZone=Zone 31     (  3 E)
Hemisphere=Southern

[Prj-Zone 5 North]
Projection type=1
Projection method=Universal Transverse Mercator
LatOrigin=0
LonOrigin=-153
FalseEasting=500000
FalseNorthing=0
ScaleFactor=0.9996
GridSkew=0
UTMZone=Zone  5     (153 W)
Hemisphere=Northern

[Prj-Dutch Grid]
Projection type=2
Projection method=RD
LatOrigin=52.15616055555556
LonOrigin=5.387638888888889
FalseEasting=155000
FalseNorthing=463000
ScaleFactor=0.9999079

[Prj-Dutch Grid Of Old]
Projection type=2
Projection method=RD

[Prj-Two Parallels]
Projection type=3
Projection method=Lambert 2 Parallel
LatOrigin=46.5
LonOrigin=3
FalseEasting=700000.125
FalseNorthing=6600000.126
1stParallel=44
2ndParallel=49.00000000277778

[Prj-True Scale]
Projection type=4
Projection method=Mercator
LatOrigin=-5.5
LonOrigin=51
FalseEasting=1234567.8916
FalseNorthing=0
ScaleFactor=1
GridSkew=7.5
LatTrueScale=42.25

[Prj-Oblique]
Projection type=7
Projection method=Stereographic
LatOrigin=46
LonOrigin=25
FalseEasting=500000
FalseNorthing=500000
ScaleFactor=0.99975

[Prj-Island]
Projection type=8
Projection method=Cassini_Soldner
LatOrigin=10.441666666666666
LonOrigin=-61.333333333333336
FalseEasting=430000
FalseNorthing=325000
ScaleFactor=1

[Prj-Coast]
Projection type=9
Projection method=Hotine Oblique Mercator(A)
LatOrigin=57
LonOrigin=-133.66666666666666
FalseEasting=5000000
FalseNorthing=-5000000
ScaleFactor=0.9999
InitialAzimuth=323.1301023611111
HotineGridSkew=323.25

[Prj-One Parallel]
Projection type=12
Projection method=Lambert 1 Parallel
LatOrigin=49.5
LonOrigin=2.33722917
FalseEasting=600000
FalseNorthing=200000
ScaleFactor=0.99987

[Prj-Timber Coast]
Projection type=13
Projection method=Hotine Oblique Mercator(B)
LatOrigin=4
LonOrigin=115
EastingAtCentre=590476.87
NorthingAtCentre=442857.65
ScaleFactor=0.99984
InitialAzimuth=53.31582047222222
HotineGridSkew=53.13010236111111

[Prj-Many Cones]
Projection type=14
Projection method=Polyconic
LatOrigin=0
LonOrigin=-54
FalseEasting=5000000
FalseNorthing=10000000

[Prj-South Pole]
Projection type=15
Projection method=Universal Polar Stereographic
FalseEasting=2000000
FalseNorthing=2000000
ScaleFactor=0.994
Hemisphere=Southern

[Prj-Tweed & Tyne]
Projection type=0
Projection method=Transverse Mercator
LatOrigin=0
LonOrigin=3
FalseEasting=500000
FalseNorthing=0
ScaleFactor=0.9996

[Ellipsoids section]
1=WGS84
2=Bessel 1841
3=Round Numbers

[Elp-WGS84]
SemiMajor=6378137
EccSqrd=0.00669437999014

[Elp-Bessel 1841]
SemiMajor=6377397.155
EccSqrd=0.006674372231

[Elp-Round Numbers]
SemiMajor=6400000
EccSqrd=0.0199

[Units section]
Meters=1.0,m
Feet=0.3048,ft
